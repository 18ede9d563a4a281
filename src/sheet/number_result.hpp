// The result of a line that is a number. Changes resultat_ligne of `feuille`.
#pragma once

#include <cstdint>
#include <string>

#include "sheet/marks.hpp"

// The number in the present number mode; failure 6 where it has no hexadecimal form.
std::string texte_du_mode(double x);

void Affiche_valeur_nombre(std::int16_t numero) noexcept;   // the line's number
void AffichePi(std::int16_t numero, bool& trouve) noexcept; // a listed multiple of Pi

// True when the line's own text, whatever its case, holds the mark.
bool formule_contient(std::int16_t numero, const Marque& marque);
