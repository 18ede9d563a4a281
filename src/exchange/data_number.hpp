// Numbers as other programs write them in a cell, and as a sheet or a file gets them so that every bit comes
// back. Holds no state.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// Value of the cell, with "," or "." as its decimal mark: sign, digits, blanks or apostrophes between groups of
// three, an exponent. The other mark may stand between groups of three where the decimal mark follows. Nothing when
// the cell holds anything else, or a number that is too large.
std::optional<double> lis_cellule(std::string_view cellule, char decimale);

// Plain decimal text that reads back to the same bits, as long as it must be.
std::string texte_entier(double x);

// The shortest text that reads back to the same bits, with an exponent where it helps, and that decimal mark.
std::string texte_court(double x, char decimale);
