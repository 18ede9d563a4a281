// Variables and matrix names: what reading an identifier does, the clearing of the stores, and what is
// done to a formula before it is read. Changes `moteur`, and `feuille` when clearing.
#pragma once

#include <string_view>

#include "base/signs.hpp"

void lis_identificateur() noexcept;   // interprets the identifier in l_symbole
bool est_mot_operateur(std::string_view symbole);   // OR, XOR, AND, NOT
void razVar();                        // clears variables, results of the lines, matrix flags
// Puts a line's text into p_formule the way the reader wants it: "²" as "^2", capitals, trimmed. Answers the
// signs that stood in it; without kSigneProduit TestVariable has nothing to insert.
Signes prepare_formule(std::string_view texte);
void TestVariable();                  // inserts "*" after numbers in p_formule: 2X is 2*X
