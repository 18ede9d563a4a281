// Which formulas nothing can be found in but by an error or by text that stays unread: a watched pass takes no record
// of them, and looks again only when one of the two happens. Holds no state.
#pragma once

#include <string_view>

// True for `formule`, prepared for the reader, when it is made of plain numbers, letters, operators and brackets, and
// of one call at most, of a function that leaves nothing behind; or of one value and a percentage of it. It may give
// its value to a letter, by "A=". What stands in an order that isn't meant so ends the reading or is an error. False
// where that isn't certain.
bool est_formule_simple(std::string_view formule);
