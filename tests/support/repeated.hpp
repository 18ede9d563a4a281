// One formula evaluated at several points, by the repeated evaluation and by its text: what each leaves,
// to be compared. Changes the engine's context, the stores and the in-memory port.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "functions/block.hpp"

// What a series of evaluations leaves.
struct Trace {
    std::vector<std::uint64_t> valeurs;
    std::vector<bool> erreurs;
    std::vector<std::string> boites;
    std::string formule, symbole, texte_erreur;
    std::vector<std::uint64_t> contexte;
    bool operator==(const Trace&) const = default;
};

// Evaluates the formula for each value of X, in a context where A, B and X are defined; the port is
// the in-memory port's. `unite` is the angle unit.
Trace par_le_texte(const std::string& formule, int unite, const std::vector<double>& points);
Trace par_repetition(const std::string& formule, int unite, const std::vector<double>& points);

// All points in one block first, as the tabulation does it, by the loops that `jeu` names.
Trace par_blocs(const std::string& formule, int unite, const std::vector<double>& points, Jeu jeu);
