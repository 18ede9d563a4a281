// How a function behaves near one point, told by its values alone: where it begins to have some, what it tends to
// on one side, and how much rounding blurs it. Hold no state.
#pragma once

#include "study/brent.hpp"

// A place on the axis, with what it may be wrong by; 0 for a place that is exact.
struct Lieu {
    double x = 0;
    double incertitude = 0;
};

enum class Tendance { valeur, plus_infini, moins_infini, inconnue };

// What a function tends to on one side of a place.
struct Cote {
    Tendance tendance = Tendance::inconnue;
    double y = 0;               // for `valeur`
    double incertitude = 0;     // of y
};

// The decimal number with the fewest figures, `decimales` behind the point at most, within `marge` of x; x itself when
// there is none.
double nombre_rond(double x, double marge, int decimales = 15);

inline constexpr int kDecimalesExactes = 6;   // of a number that a formula may well have meant

// The place x, exact where a number of few figures lies within `marge`.
Lieu lieu_rond(double x, double marge);

// What the values are wrong by near x, as three neighbours show it that a smooth curve would put on a line.
// `largeur` is the distance to look around in.
double bruit_en(const Courbe& f, double x, double largeur);

// Where f stops to have values between `oui`, where it has one, and `non`, where it has none. `oui` and `non` end as
// the two neighbours. The place is exact when it is a number of few figures.
Lieu frontiere(const Courbe& f, double& oui, double& non);

// What f tends to as x comes to x0 from the side of `pas`, a distance with its sign that becomes 4 times smaller at
// each step, down to `finesse` or rounding.
Cote tendance(const Courbe& f, double x0, double pas, double finesse);
