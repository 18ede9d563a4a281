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
bool nomme_fonction() noexcept;     // does l_symbole call a function? sets type_f when it does
void lis_constante() noexcept;      // l_valeur from the literal in l_symbole

// The same, where most symbols are none at a glance: no name has one character, or no letter.
inline bool test_fonction() noexcept {
    return moteur.l_symbole.size() >= 2 && !moteur.l_symbole.sans_lettre() && nomme_fonction();
}

// Value of a literal: "$" in front of hexadecimal digits, "#" or nothing in front of decimal ones. Failure 6
// beyond the floats.
double valeur_litteral(std::string_view symbole);

// Reads binary digits from the left into `valeur`; false at the first other character.
bool chnenbin(std::string_view texte, double& valeur);
