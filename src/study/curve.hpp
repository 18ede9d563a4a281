// The curve of a function as it is to be heard: its values at even steps, the places where a tick sounds, and the
// lowest and highest value that get a pitch of their own. Hold no state.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "study/sheet_study.hpp"

enum class Coche { zero, extreme, unite };       // what a tick tells

struct MarqueSonore {
    double place;                                // 0 at the left end of the interval, 1 at its right end
    Coche coche;
};

struct CourbeEntendue {
    double debut = 0, fin = 0;                   // the interval
    std::vector<double> y;                       // at even steps from end to end; not a number where there is none
    std::vector<double> sauts;                   // places of jumps, 0 to 1, from left to right
    std::vector<MarqueSonore> marques;                // from left to right
    double bas = 0, haut = 0;                    // values of the lowest and the highest pitch
    double unite = 1;                            // a tick at each multiple of it
};

// The curve of a study; `f` gives its values while the calculation stands aside.
CourbeEntendue courbe_de(const Etude& etude, const Courbe& f);

// A point of a function.
struct PointEntendu {
    double x = 0, y = 0;                         // y is not a number where there is no value
};

// A function of the sheet, ready to be heard: its curve, and the points that the arrows go through.
struct CourbeDeFeuille {
    FonctionDeFeuille fonction;
    CourbeEntendue courbe;
    std::vector<PointEntendu> points;
};

// Reads the curve of the function over its heading's interval, or over `bornes`. The result is "", or why there is
// none.
Refus lis_courbe(std::string_view texte, const FonctionDeFeuille& fonction, std::string_view bornes,
                 CourbeDeFeuille& resultat);

// Gives two curves one scale of pitches, so that they can be compared.
void accorde(CourbeEntendue& une, CourbeEntendue& autre);
