// What stands behind the formula of a line and is cut by the pass: a result that a pass wrote, or what the user
// has typed there. Change nothing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "sheet/observer.hpp"
#include "verification/findings.hpp"

struct TexteEfface {
    GenreConstat genre = GenreConstat::apres;   // `apres`: nothing of the user's is cut
    std::size_t place = 0;                      // in the whole line, from 0
    std::string morceau{};
    std::string propose{};
};

// What of the line was cut though no pass has written it.
TexteEfface texte_efface(const LigneObservee& o);

// True when what was cut is a blank, "=", a blank and a number in figures, behind a line that has such a result again:
// this is quickly known, and nothing of the user's is cut then.
bool est_resultat_de(const LigneObservee& o);

// True for letters alone, at least one.
bool est_mot(std::string_view texte);

// The assignment to the first letter of `mot`, or to the matrix of that name, that `queue`, which begins with "=", was
// meant for; "" when it
// doesn't evaluate.
std::string affectation_voulue(std::string_view mot, std::string_view queue);

// The formula of a line that has "!" for factorials, with FACT in their place; "" when it doesn't evaluate.
std::string avec_factorielles(std::string_view ligne);
