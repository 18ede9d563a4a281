// The fine grid on which a function is looked at, and its pieces: the stretches on which it has values and doesn't
// jump. Between two points of the grid only what its values there give away is found. Hold no state.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "study/behaviour.hpp"

inline constexpr std::size_t kMailles = 4000;    // cells of the grid

struct Grille {
    const Courbe& f;
    double debut, fin;
    double maille;                               // width of a cell
    std::vector<double> x, y;                    // kMailles + 1 points and holes; y: not a number without a value
    std::array<double, 66> bruits{};             // of 64 stretches, with one more at each end

    // What values near x are wrong by, as 64 stretches of the interval have shown it.
    double bruit(double en) const;
    // The same, looked at anew close to x and never more.
    double flou(double en) const;
};
Grille pose_grille(const Courbe& f, double debut, double fin);

enum class Borne { intervalle, domaine, saut };  // why a piece ends: the interval, no values, a jump or a pole

// An end of a piece.
struct Bout {
    Lieu lieu;
    Borne borne = Borne::intervalle;
    bool compris = false;                        // f has its value of this piece there
    Cote cote;                                   // what f tends to there
};

// A stretch without a hole or a jump; a piece may be a single point.
struct Morceau {
    Bout gauche, droite;
    std::vector<double> x, y;                    // the points of the grid in it, and its ends where f has values
};

std::vector<Morceau> decoupe(const Grille& grille);

// The two pieces of `morceau` left and right of a pole at `lieu`.
std::array<Morceau, 2> coupe_au_pole(const Grille& grille, const Morceau& morceau, const Lieu& lieu);
