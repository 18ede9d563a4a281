// The same formula evaluated many times while one variable changes (tabulation, area). Changes
// `moteur` exactly as evaluating the text each time does.
#pragma once

#include "engine/grammar.hpp"

struct Repetition {
    int variable;                 // number of the letter that changes, 1 to 26

    // The formula is the one in p_formule, ready for evalue_formule.
    explicit Repetition(int v) : variable(v) {}
    double evalue() { return evalue_formule(); }
    void termine() {}
};
