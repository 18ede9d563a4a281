// A sheet as a page for others: one file of HTML, without scripts, that a browser shows, reads and prints, and that
// tools for XML read as well.
// Holds no state.
#pragma once

#include <string>
#include <string_view>

#include "exchange/sheet_report.hpp"

// The page. A comment at the head of the sheet is its title, `nom` (in the code page) where there is none.
std::string page_html(const Rapport& rapport, std::string_view nom);
