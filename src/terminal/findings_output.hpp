// What the check of a sheet has found, for a terminal: a French sentence a line, or JSON for programs.
#pragma once

#include <string>
#include <vector>

#include "verification/findings.hpp"

// One line for each finding, in UTF-8; with `json` one object a line.
std::string texte_constats(const std::vector<Constat>& constats, bool json);
