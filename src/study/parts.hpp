// What is found on one piece of a function: zeros, extremes, flat stretches, variations, signs. Hold no state.
#pragma once

#include <vector>

#include "study/grid.hpp"

struct Zero {
    Lieu lieu;
    bool exact = false;          // the function as calculated is 0 there, and the place is a number of few figures
    bool traverse = true;        // it changes its sign, or stands at an end
    double reste = 0;            // its value where it touches 0 without changing its sign
};

// A stretch on which f keeps one value.
struct Palier {
    Lieu debut, fin;
    double y = 0;
};

struct Extreme {
    Lieu lieu;
    Lieu fin;                    // of a flat top or bottom; the place itself otherwise
    double y = 0;
    double incertitude = 0;      // of y
    bool maximum = false;
};

enum class Sens { croissante, decroissante, constante };
struct Variation {
    Lieu debut, fin;
    Sens sens = Sens::constante;
};

struct Signe {
    Lieu debut, fin;
    int signe = 0;               // -1, 0, 1
};

// A piece with what happens on it.
struct Partie {
    Morceau morceau;
    std::vector<Variation> variations;
    std::vector<Extreme> extremes;
    std::vector<Zero> zeros;
    std::vector<Palier> paliers;
    std::vector<Signe> signes;
};
