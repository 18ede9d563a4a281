// What the tree of a formula that was read whole says of it: powers and signs, matrices, angles. Changes
// nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "verification/findings.hpp"
#include "verification/problem.hpp"

struct ConstatArbre {
    GenreConstat genre;
    std::int32_t place = 1;    // in the formula, from 1
    std::string morceau{};       // "": the whole formula
    std::string lu{};
    std::string valeur{};
    std::string propose{};
};

// A percentage, and a term whose value a reader takes for the rate when it stands in front of the "%".
bool est_pourcentage(const Noeud& n);
bool est_terme(const Noeud& n);

// A sine, cosine or tangent, and whether its argument is a number that is usual in another unit than the current one.
bool est_angle(const Noeud& n);
bool angle_suspect(double argument, bool contient_pi);

// INT or FRAC of `argument`, with another value than the whole number below it or what is above that.
bool est_autre_partie(const Noeud& n, double argument);

// PI, or a number that somebody writes for it.
bool est_pi(const Noeud& n);

// A division stands in the formula, and a product whose sign was left out or a power of 1 in front of it.
bool fraction_a_regarder(std::string_view formule, std::string_view tapee);

// The findings of the tree, in the order of the nodes; `valeur` is what the formula gave.
std::vector<ConstatArbre> constats_de_l_arbre(const Lue& lue, double valeur);
