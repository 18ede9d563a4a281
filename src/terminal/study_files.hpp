// The functions of a sheet as files of voxtab-calc: their studies as text, their curves as sound. Changes files.
#pragma once

#include <string>

#include "terminal/exchange_files.hpp"
#include "terminal/options.hpp"

// Writes what the options ask for of the functions under INC and AIR. The text is that of the calculated sheet.
RefusEchange ecrit_etudes(const OptionsCalcul& options, const std::string& texte);
