// Texts in UTF-16 with the mark that other programs put at their start, to UTF-8 and back. Holds no state.
#pragma once

#include <string>
#include <string_view>

inline constexpr std::string_view kMarquePetit = "\xFF\xFE";  // the low byte of each unit first
inline constexpr std::string_view kMarqueGrand = "\xFE\xFF";  // the high byte first

// True when the bytes begin with one of the marks.
bool est_utf16(std::string_view octets);

// The text after the mark, in UTF-8; half a unit or half a pair of units is U+FFFD there.
std::string utf8_depuis_utf16(std::string_view octets);

// The text with the mark in front, low bytes first or high bytes first. `utf8` is a
// sheet's text, where every character is one unit.
std::string utf16_depuis_utf8(std::string_view utf8, bool petit);
