// Determinant and inverse of a matrix: Laplace expansion along the first row; the inverse is the adjugate
// divided by the determinant. Changes the work matrix, and the error state of `moteur` on a refusal.
#pragma once

#include "state/matrices.hpp"

// Determinant of matrice_travail. One that isn't square is refused: 0, erreur_formule is set, and the
// words wait in l_texte_erreur.
void Determinantmatrice(double& resultat) noexcept;

// Replaces matrice_travail by its inverse. One that isn't square is refused as above; one whose
// determinant is 0 stays as it is, without an error.
void InversionMatrice() noexcept;

// The procedures below let their failures go up. Tables are square, n by n, numbered from 1.

// Determinant, 0 for n = 0. Refuses an order above 24 with failure 7.
double funcDetMat(const TableMatrice& M, int n);
// The minor matrix of M, of order n - 1: without that row and that column. Kept for the tests alone, as
// the plain definition: the program computes all minors of one order at once.
TableMatrice funcReduceMat(int ligne, int colonne, const TableMatrice& M, int n);
// Inverts in place, for the tests alone. A determinant of 0 shows a box, then raises failure 11.
void procInverseMatrix(TableMatrice& M, int n);
void procTransMatrix(TableMatrice& M, int n);   // transposes in place
void procTransfertMatrix(const TableMatrice& source, TableMatrice& destination, int n);
bool funcEstPaire(int k);   // true when k is even
