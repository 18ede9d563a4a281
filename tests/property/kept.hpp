// Every line of the user survives a pass: what may become of a line, and which lines may go.
#pragma once

#include <string>
#include <vector>

#include "property/checks.hpp"

// True when `apres` is what a pass may make of the line `avant`.
bool est_la_ligne(const std::string& avant, const std::string& apres);

// For each line of a sheet whether a pass may drop it.
std::vector<bool> lignes_a_remplacer(const std::vector<std::string>& lignes);

// Every line of `avant` that no pass has written stands in `apres`, in order.
Defaut verifie_lignes_gardees(const std::string& avant, const std::string& apres);
