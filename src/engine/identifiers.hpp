// Variables and matrix names: what reading an identifier does, the clearing of the stores, and the
// product that a digit in front of a letter means. Changes `moteur`, and `feuille` when clearing.
#pragma once

void lis_identificateur() noexcept;   // interprets the identifier in l_symbole
void razVar();                        // clears variables, results of the lines, matrix flags
void TestVariable();                  // inserts "*" after numbers in p_formule: 2X is 2*X
