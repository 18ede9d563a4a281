// What the grammar needs of the floor above: the built-in functions and the arithmetic of the work
// matrices, as procedures that `installe_fonctions` fills in once. Until then no name is a function's and
// no operation does anything. One instance, `operations`.
#pragma once

#include <string_view>

struct Operations {
    // Number of the function that a symbol calls; 0 for none.
    int (*fonction_nommee)(std::string_view symbole) = [](std::string_view) { return 0; };
    // Value of the call of function type_f, whose name is in l_symbole.
    double (*appelle_fonction)() noexcept = []() noexcept { return 0.0; };
    // matrice_travail takes the result; matrice_travail2 is the second operand.
    void (*addition)() noexcept = []() noexcept {};
    void (*soustraction)() noexcept = []() noexcept {};
    void (*multiplication)() noexcept = []() noexcept {};
    // The operand read last, times a number.
    void (*produit_par_nombre)(double nombre) noexcept = [](double) noexcept {};
    void (*puissance)(double exposant) noexcept = [](double) noexcept {};
};
extern Operations operations;
