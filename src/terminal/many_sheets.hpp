// Several sheets on one command line: calculated side by side, each as if it were alone, and told in their order.
#pragma once

#include <string>
#include <vector>

#include "terminal/options.hpp"

// Calculates the sheet of the options, tells it on the standard streams and gives its exit status.
using CalculeFeuille = int (*)(const OptionsCalcul& options);

// All sheets of these options, which `mots` came from. The worst of their statuses.
int calcule_feuilles(const OptionsCalcul& options, const std::vector<std::string>& mots, CalculeFeuille calcule);

// The work of a helper: sheets as they are asked for, until nothing more comes.
int sers_d_aide(CalculeFeuille calcule);
