// The grammar of a formula: each procedure reads its part, leaves the value in its register of `moteur` and mostly
// answers it too, which is quicker than reading it there. On entry l_symbole holds the first symbol of the part, on
// return the first one after it.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/failure.hpp"

// Evaluates p_formule (to which it appends the end mark "@") and gives its value, which means
// nothing when erreur_formule is set afterwards.
double evalue_formule() noexcept;

// Value of an element of a matrix or a data set that is a formula. The formula of the line in
// calculation is kept aside.
double evalue_element(const Procedure& procedure, std::string_view element) noexcept;

void compile_egalite() noexcept;      // [expression =] expression
void compile_expression() noexcept;   // sign, + - OR XOR %
double compile_terme() noexcept;      // * / AND
double compile_exposant() noexcept;   // ^
double compile_not() noexcept;        // NOT
double compile_facteur() noexcept;    // function, number, variable, matrix, bracket

// One function argument, read with the running sum kept in the one save cell.
double Compile_un_argument() noexcept;

// Reads "," and one more argument of a call into `registre`; type_f stays the call's. False, and
// reported, when the comma is missing: the call ends at once.
bool lis_argument(double& registre) noexcept;

double carre(double x) noexcept;      // x*x
bool odd(std::int32_t n) noexcept;    // true when n is odd
