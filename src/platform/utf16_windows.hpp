// Texts of Windows, which has UTF-16, and the program's, in UTF-8. Holds no state.
#pragma once

#include <string>
#include <string_view>

// Bytes that are no UTF-8 become the replacement character.
std::wstring vers_utf16(std::string_view utf8);

// A half of a pair that stands alone becomes the replacement character.
std::string depuis_utf16(std::wstring_view utf16);
