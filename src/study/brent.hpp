// Brent's methods: the zero of a function between two points of opposite signs, and the lowest point between two
// others. Each keeps an interval that holds what is looked for and gets smaller at every step at least as
// bisection or golden section would after a bounded number of steps: they end, whatever the function. Hold no
// state.
#pragma once

#include <functional>

using Courbe = std::function<double(double)>;   // value at x; not a number where there is none

// A place that was found: it lies between `gauche` and `droite`, and x is the best of them.
struct Encadrement {
    double x = 0;
    double gauche = 0;
    double droite = 0;
};

// Between a and b, where f has opposite signs, down to neighbouring numbers or `tolerance`. The values at both ends
// are given. Where f has no value on the way the place found is there.
Encadrement cherche_zero(const Courbe& f, double a, double fa, double b, double fb, double tolerance);

// The lowest value of f between a and b, by golden section and parabolas, to `tolerance` or as near as the values
// tell points apart.
Encadrement cherche_minimum(const Courbe& f, double a, double b, double tolerance);
