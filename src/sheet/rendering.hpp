// From the value of a line to the text that the sheet shows after it, in the current number mode. Changes
// resultat_ligne and resultat_bloc of `feuille`.
#pragma once

#include <cstdint>

#include "base/signs.hpp"

void affiche_valeur(std::int16_t numero) noexcept;          // the line's result, matrices included

// The same, where the line's formula, which is the one read last, has no other signs than these.
void affiche_valeur(std::int16_t numero, Signes signes) noexcept;
