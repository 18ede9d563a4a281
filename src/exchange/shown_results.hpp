// Whether a report tells the random numbers that the sheet shows, and a report that takes the sheet's own words where
// they can't be drawn again: a sheet that was saved with them, for one. Hold no state.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/report.hpp"

// The lines of a text, without their ends.
std::vector<std::string_view> lignes_du_texte(std::string_view texte);

// Whether a line that was drawn at random shows another result in `montre`, the sheet.
bool contredit(const Rapport& rapport, std::string_view montre);

// Puts the results that the sheet shows in the place of those of the report. Nothing is done for a sheet with blocks
// of results that aren't there yet: it has to be calculated anew.
void montre_ce_qui_est_ecrit(Rapport& rapport, const std::string& montre);
