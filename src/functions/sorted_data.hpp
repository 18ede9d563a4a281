// The sorted data set of TRISTATX. Changes table_x and table_statx of `statistiques`.
#pragma once

#include "base/codepage.hpp"
#include "base/failure.hpp"

// Words of TriStatX, for the file that writes the block of the values.
inline constexpr Procedure kMotsTri{"sur TriStatX"_fr, true};

// Sorts table_x, smallest value first.
void TriTable_x() noexcept;

// Sorts the data set and has its values written into the block of the line.
void TriStatX() noexcept;
