// A text cut into the pages that it is printed on. Holds no state and knows no toolkit.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

using Page = std::vector<std::string>;   // its lines, Windows-1252, without line ends

// The pages of a text: one ends at a form feed, or when `maxi` lines are on it. What stands after the
// last form feed is a page only when there is something.
std::vector<Page> pages_de(std::string_view texte, std::size_t maxi);
