// The steps into which a formula of plain arithmetic is read, and the fusing of frequent sequences of them.
// Hold no state. What holds for every program:
// - it is run from an empty stack and leaves it empty: the value of the formula is the running sum;
// - it never has more than kHauteurPile values on the stack, nor takes one from an empty stack;
// - a variable is one that has a value, a function one that has a formula, a literal is finite;
// - fusing changes neither the operations nor their order, so the results are the same bit for bit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

inline constexpr std::size_t kHauteurPile = 64;   // values; deeper formulas are read each time

// One step of a formula that has been read. The registers are a stack of values and the two shared
// cells of the grammar: the running sum (l_valeur_expression) and the one save cell of the arguments.
enum class Pas : std::uint8_t {
    constante,       // push a literal
    variable,        // push the value of a variable
    multiplie,       // pop the right side, multiply the top by it
    divise,
    eleve,
    somme,           // the running sum starts with the popped value
    oppose,          // ... with its opposite
    ajoute,          // add the popped value to the running sum
    retranche,
    ouvre,           // "(": push the running sum aside
    ferme,           // ")": the sum is the value, the one aside comes back
    sauve,           // function argument: the running sum goes to the save cell
    argument,        // the argument is the sum; the sum comes back from the save cell
    fonction,        // the top becomes its function
    // Frequent sequences as one step each, with the same arithmetic in the same order:
    produit,             // push literal * variable
    puissance,           // push variable ^ literal
    divise_par,          // divide the top by a literal that is not 0
    ajoute_constante,    // add a literal to the running sum
    argument_variable    // sauve, variable, somme, argument
};

struct Instruction {
    Pas pas;
    std::int16_t rang;       // variable 1 to 26, or function number
    double valeur;           // of a literal
};

using Programme = std::vector<Instruction>;

// The same steps with the frequent sequences fused.
Programme resserre(const Programme& programme);
