// Which entry of the guide explains a message. The parts of a message that change (a letter, numbers, a name) are
// found by the figures and names of its entry, or told by patterns. Constant data.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The error that stands after a line, without its "="; nothing when the line has none. A line whose result is empty
// has failed in a box and has "=" for an error.
std::string_view erreur_de_la_ligne(std::string_view ligne);

// Where the entry of the guide begins that explains these words, in bytes from 0; npos when it has none. Words that a
// box has too are explained as the box's when they stood in one.
std::size_t entree_du_guide(std::string_view guide, std::string_view mots, bool boite = false);
