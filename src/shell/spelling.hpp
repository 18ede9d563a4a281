// A result character by character. Holds no state.
#pragma once

#include <string>
#include <string_view>

// "1, 2 3 4 point 5" for "1234.5": digits one by one, in groups of three where there are more, signs in words. In a
// hexadecimal text A to F are digits; elsewhere an E behind a digit is a power of ten.
std::string epele(std::string_view texte, bool hexadecimal);
