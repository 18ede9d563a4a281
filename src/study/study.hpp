// The study of a function over an interval, by its values: where it has some, its sign, zeros, extremes, variations,
// what it tends to. What lies closer together than two points of the grid may be missed; what is found is refined
// and told with what it may be wrong by. Hold no state.
#pragma once

#include <vector>

#include "study/parts.hpp"

struct Etude {
    double debut = 0, fin = 0;
    std::vector<Partie> parties;       // from left to right
    std::vector<double> x, y;          // the grid; y is not a number where there is no value
    double maille = 0;                 // its width
};

// Studies f between `debut` and `fin`, which is greater.
Etude etudie(const Courbe& f, double debut, double fin);

// All zeros, from left to right: of a function that is a difference, where two functions meet.
std::vector<Zero> zeros_de(const Etude& etude);
