// A formula's operations run over a block of values. The loops stand in functions/block_loops.hpp and are built
// twice, for any processor of the kind and for those with AVX2; which of them runs is chosen at the start. Both
// give the same bits. Changes nothing but the cells, and `jeu_de_boucles` when a test asks for one of them.
#pragma once

#include <cstddef>

#include "base/maths.hpp"
#include "functions/repetition_steps.hpp"

enum class Jeu { commun, avx2 };

// True when the processor has what these loops need.
bool jeu_present(Jeu jeu);

// The loops that run: the best that the processor has, until a test chooses others among those that are present.
extern Jeu jeu_de_boucles;

// Runs `nombre` operations over `n` values, at most kTailleBloc; `cases` are the cells, the variable's values in the
// first. False when a value is infinite or undefined, or an argument is excluded: what the cells hold then means
// nothing, and the text has to report.
bool calcule_bloc(const Operation* operations, std::size_t nombre, double* cases, std::size_t n);

// The same by one of the two.
bool calcule_bloc_commun(const Operation* operations, std::size_t nombre, double* cases, std::size_t n);
bool calcule_bloc_avx2(const Operation* operations, std::size_t nombre, double* cases, std::size_t n);

// The function `rang` of the table for each value. False when one is excluded.
bool applique_fonction(int rang, const double* x, double* y, std::size_t n);
