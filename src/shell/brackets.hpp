// The command that goes from a bracket to the one that belongs to it. Changes the cursor.
#pragma once

#include <string_view>

#include "base/codepage.hpp"

inline constexpr std::string_view kAucuneParenthese = "aucune parenthèse avant le curseur"_fr;

// From the bracket at the cursor, or the nearest one in front of it on the line, to the one that belongs to
// it. Says which one that is, its column and what stands between the two; a bracket without its other one is
// told, and the cursor stays.
void mnuParentheseItem();
