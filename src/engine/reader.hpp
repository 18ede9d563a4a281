// The symbol reader: cuts p_formule into symbols, one symbol of lookahead, and values literals and
// identifiers as it reads them. Changes `moteur`.
#pragma once

#include <string_view>

#include "state/context.hpp"

// First character of the current symbol; 0 for an empty one.
inline char tete_symbole() { return moteur.l_symbole.front(); }

inline bool symbole_est(std::string_view mot) { return moteur.l_symbole == mot; }

void commence_lecture() noexcept;   // the reader goes to the beginning of p_formule
void place_separateurs() noexcept;  // p_formule has been changed while it is read
void p_lis_symbole() noexcept;      // raw cut of the next symbol into l_symbole
void lis_symbole() noexcept;        // the next symbol, with its value or its effects
bool test_fonction() noexcept;      // is l_symbole a function name? sets type_f when it is
void lis_constante() noexcept;      // l_valeur from the literal in l_symbole

// Value of a literal: "$" in front of hexadecimal digits, "#" or nothing in front of decimal ones. Failure 6
// beyond the floats.
double valeur_litteral(std::string_view symbole);

// Reads binary digits from the left into `valeur`; false at the first other character.
bool chnenbin(std::string_view texte, double& valeur);
