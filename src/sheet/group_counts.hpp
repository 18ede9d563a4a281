// The counts of the groups that a statistics call gives: a missing one is 1. Changes p_formule.
#pragma once

#include <string_view>

// Completes the frequencies of the call in p_formule and makes its ";" commas. False when the line
// is not to be evaluated: a bare word, or a call that isn't closed.
bool TestEffectif(std::string_view NomStat);
