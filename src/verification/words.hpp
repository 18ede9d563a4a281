// A formula in French words, as the engine has read it. Two formulas that were read differently never have
// the same words: docs/spoken-formulas.md tells the rules. Holds no state.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/reading.hpp"

// The words of what was read, without what was not: "A égale racine carrée de 2". `ecrit` is what the user
// wrote, from its first character that is no blank. Nothing when nothing was read. Raises failure 28 where the
// stack ends.
std::string mots_lus(const FormuleRelevee& lue, std::string_view ecrit);

// What was not read, sign by sign: "non lu virgule 5 plus 2". Nothing when all was read. `places` tells of each
// character of the formula where it stands in what was written, and of its end.
std::string mots_non_lus(const FormuleRelevee& lue, std::string_view ecrit, const std::vector<std::size_t>& places);
