// The two-line forms: INC tabulates the function on the line below, AIR integrates it by trapezoids.
// Change `feuille`, the variable of the heading and muet_erreur.
#pragma once

#include <cstdint>
#include <string>

// `numero` is the heading's line, whose formula stands in p_formule; `variable` the number of its
// letter, 1 to 26, anything else is refused. The function stands in formule_ligne(numero + 1).
// Failures of the run time go up to the caller.
void CalculInc(std::int16_t numero, int variable);
void Calculair(std::int16_t numero, int variable);

// Said of a heading in that letter above a line that doesn't have it.
std::string mots_fonction_inconnue(char lettre);
