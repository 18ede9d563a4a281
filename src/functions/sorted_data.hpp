// The sorted data set of TRISTATX. Changes table_x and table_statx of `statistiques`, and
// resultat_bloc of `feuille`.
#pragma once

#include "base/codepage.hpp"

// Last line of the block.
inline constexpr std::string_view kFinTri = "fin résultat TriStatX"_fr;

// Sorts table_x, smallest value first.
void TriTable_x() noexcept;

// Sorts the data set and writes it into resultat_bloc, in the shape of the lines of its block.
void TriStatX() noexcept;
