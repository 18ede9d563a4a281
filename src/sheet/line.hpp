// One line of the sheet is calculated. Changes `feuille` and the context.
#pragma once

#include <cstdint>

// Calculates formule_ligne of the line: sets valeur_ligne, resultat_ligne and erreur_formule, and
// adds the statistics lines to resultat_bloc.
void calcul_chaine(std::int16_t numero) noexcept;
