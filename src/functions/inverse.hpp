// Determinant and inverse: the expansion along the first row, and the adjugate divided by the
// determinant. Changes `matrices`, and `moteur` where a matrix is refused.
#pragma once

#include "state/matrices.hpp"

// Determinant of matrice_travail; 0 for one that isn't square, whose words wait in l_texte_erreur.
void Determinantmatrice(double& resultat) noexcept;

// Replaces matrice_travail by its inverse. One that isn't square is refused; one whose determinant
// is 0 stays as it is without an error.
void InversionMatrice() noexcept;

// The procedures below let their failures go up. Tables are square, n by n, numbered from 1.

// Determinant, 0 for n = 0. Refuses an order above 24 with failure 7.
double funcDetMat(const TableMatrice& M, int n);
// M without a row and a column. The determinants don't need it, as they share their minors; it is
// the plain definition that they are tested against.
TableMatrice funcReduceMat(int ligne, int colonne, const TableMatrice& M, int n);
void procInverseMatrix(TableMatrice& M, int n);   // inverts in place
void procTransMatrix(TableMatrice& M, int n);     // transposes in place
void procTransfertMatrix(const TableMatrice& source, TableMatrice& destination, int n);
bool funcEstPaire(int k);   // true when k is even
