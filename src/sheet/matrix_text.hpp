// The text of a matrix result, on its line or in a block below it. Each element goes through the
// ordinary number rendering, so the number mode and the decimals apply. Changes matrice_travail2
// and `feuille`: the calculated line's value and result are the scratch, resultat_bloc the block.
#pragma once

#include <string>

#include "base/codepage.hpp"

// Last line of the block of a matrix in column form.
inline constexpr std::string_view kFinMatrice = "fin résultat matrice"_fr;

// The whole matrix of that letter as one text: "," between elements, ";" between rows.
std::string ChaineMatriceLigne(char lettre) noexcept;

// Leaves in resultat_bloc one line a row and the closing line.
void ChaineMatriceColonne(char lettre) noexcept;
