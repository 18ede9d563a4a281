// A file that is opened and isn't in the sheet's code page: UTF-8 or UTF-16, as other programs write
// them. Shows a box for what is lost on the way; holds no state.
#pragma once

#include <string>
#include <string_view>

// True when the bytes are recognised as another coding than the code page: a mark of UTF-8 or UTF-16
// at the start, or UTF-8 throughout with more than ASCII in it.
bool est_unicode(std::string_view octets);

// Those bytes as a text of the code page. What has no place in it has left a question mark, and one box
// tells how many characters, which and where.
std::string amene_fichier(std::string_view octets);
