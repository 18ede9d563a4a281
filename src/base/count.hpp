// Counting the characters of a long text. Holds no state.
#pragma once

#include <cstddef>
#include <string_view>

// How often the character stands in the text.
std::size_t compte_octets(std::string_view texte, char c);
