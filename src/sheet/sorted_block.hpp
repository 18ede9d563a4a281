// The block of values below a line of TRISTATX. Changes resultat_bloc of `feuille`.
#pragma once

#include <string_view>

#include "base/codepage.hpp"

// Last line of the block.
inline constexpr std::string_view kFinTri = "fin résultat TriStatX"_fr;

// Writes the sorted values of table_x, poured into lines as long as table_statx says.
void ecrit_bloc_tri() noexcept;
