// A sheet as a page for others: one file of HTML, without scripts, that a browser shows, reads and prints, and that
// tools for XML read as well. Holds no state.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/sheet_report.hpp"
#include "study/sheet_study.hpp"

// The page. A comment at the head of the sheet is its title, `nom` (in the code page) where there is none. The
// studies, of functions of the report's text in its order, stand below their functions.
std::string page_html(const Rapport& rapport, std::string_view nom, const std::vector<EtudeDeFeuille>& etudes = {});
