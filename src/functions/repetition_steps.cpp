// Fuses the frequent sequences of steps. Changes no state.
#include "functions/repetition_steps.hpp"

#include <algorithm>
#include <initializer_list>

namespace {

// True when the steps from `i` on are those.
bool suite_est(const Programme& p, std::size_t i, std::initializer_list<Pas> pas) {
    return p.size() - i >= pas.size() &&
           std::equal(pas.begin(), pas.end(), p.begin() + static_cast<std::ptrdiff_t>(i),
                      [](Pas attendu, const Instruction& x) { return x.pas == attendu; });
}

// The one step that stands for the sequence at `i`, and the length of that sequence; a length of 1
// leaves the step as it is.
std::size_t resserre_ici(const Programme& p, std::size_t i, Instruction& pas) {
    using enum Pas;
    pas = p[i];
    if (suite_est(p, i, {constante, variable, multiplie})) {
        pas = {produit, p[i + 1].rang, p[i].valeur};
        return 3;
    }
    if (suite_est(p, i, {variable, constante, eleve})) {
        pas = {puissance, p[i].rang, p[i + 1].valeur};
        return 3;
    }
    if (suite_est(p, i, {sauve, variable, somme, argument})) {
        pas = {argument_variable, p[i + 1].rang, 0};
        return 4;
    }
    if (suite_est(p, i, {constante, divise}) && p[i].valeur != 0) {
        pas = {divise_par, 0, p[i].valeur};
        return 2;
    }
    if (suite_est(p, i, {constante, ajoute})) {
        pas = {ajoute_constante, 0, p[i].valeur};
        return 2;
    }
    return 1;
}

}  // namespace

Programme resserre(const Programme& p) {
    Programme sortie;
    for (std::size_t i = 0; i < p.size();) {
        Instruction pas{};
        i += resserre_ici(p, i, pas);
        sortie.push_back(pas);
    }
    return sortie;
}
