// The zeros of a piece. Hold no state.
#pragma once

#include <vector>

#include "study/parts.hpp"

// The zero between two points of opposite signs.
Zero zero_entre(const Grille& grille, double a, double ya, double b, double yb);

// Zeros that the signs on the grid give away, and stretches on which f is 0. Those that an extreme gives away are
// the extremes' matter.
void cherche_zeros(const Grille& grille, Partie& partie);

// Adds a zero at its place, unless one stands there.
void ajoute_zero(std::vector<Zero>& zeros, const Zero& zero, double distance);
