// Reads a formula of plain arithmetic into operations, once for all evaluations. What holds:
// - the symbols are cut by the engine's own reader, literals and functions are valued by the engine and the
//   table of functions; only the rules of the grammar stand here a second time, as a table of operators;
// - what is not plain arithmetic is refused: words, matrices, "%", two operands in a row, a function without
//   a formula, a variable without a value, a literal beyond the floats, an assignment to a variable that the
//   formula reads or that changes between evaluations;
// - reading moves the engine's cursor and symbol, reports nothing and stores nothing.
#pragma once

#include "functions/repetition_steps.hpp"

struct FormuleLue {
    Programme programme;   // without a result: the formula is refused
    int cible = 0;         // variable that the formula assigns, 1 to 26; 0 for none
};

// Reads p_formule, in which the variable of number `variable` changes between evaluations.
FormuleLue lis_repetition(int variable);
