// The arithmetic of the work matrices: matrice_travail is the accumulator, matrice_travail2 the
// second operand. The grammar calls these procedures where an operator stands between matrices.
// Changes `matrices`; what can't be calculated is reported as an error of the formula.
#pragma once

void additionMatrice() noexcept;
void SoustractionMatrice() noexcept;

// The matrix product; the accumulator takes its shape.
void MultiplicationMatrice() noexcept;

// Multiplies the operand read last by a number: matrice_travail2 when it holds one.
void MultiplicationNombreMatrice(double nombre) noexcept;

// The accumulator to the power of a whole exponent of at least 2.
void PuissanceMatrice(double exposant) noexcept;
