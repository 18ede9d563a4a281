// Curves and points as a drawing that stands in a page: inline SVG with its title and description. Holds no state.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/sheet_report.hpp"

// The function of an INC or AIR line over its interval, and a dot for each row of its table.
std::string dessin_de_courbe(const LigneRapport& ligne);

// A data set: a bar for each value, as high as its frequency; or points, with the line of regression of Y on X.
std::string dessin_de_donnees(const LigneRapport& ligne);
