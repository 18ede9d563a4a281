// Extremes and variations of a piece. Hold no state.
#pragma once

#include <optional>

#include "study/parts.hpp"

// Stretches of the piece, other than of zeros, on which f keeps one value.
void cherche_paliers(const Grille& grille, Partie& partie);

// The extremes of the piece, refined, with the zeros that they give away. A pole that the grid shows as an extreme
// is the result: the piece is to be cut there.
std::optional<Lieu> cherche_extremes(const Grille& grille, Partie& partie);

// Rising, falling and constant stretches between the ends, the extremes and the flat stretches.
void decrit_variations(Partie& partie);

// The sign between the ends, the zeros and the stretches of zeros.
void decrit_signes(Partie& partie);
