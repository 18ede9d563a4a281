// The arithmetics in which the formulas of the functions are computed, and the formulas that are longer
// than a row of the table: the call of a formula computes them through the procedures that report
// failures, the repeated evaluation through plain arithmetic. Angles are in the unit of `modes`. Hold no
// state.
#pragma once

#include <cmath>

#include "base/maths.hpp"
#include "engine/grammar.hpp"
#include "functions/angles.hpp"
#include "state/context.hpp"

// The steps of a formula as plain arithmetic: a failure shows as an infinite or undefined result.
struct ArithmetiqueSimple {
    double a_r(double x) const { return vers_radians(x); }
    double r_a(double x) const { return depuis_radians(x); }
    double carre(double x) const { return x * x; }
};

// The steps of a formula through the procedures that report their own failures; notes when one of
// them has already given an infinite value.
struct ArithmetiqueSurveillee {
    bool infini = false;
    double note(double x) {
        infini |= std::isinf(x);
        return x;
    }
    double a_r(double x) { return note(conv_a_r(x)); }
    double r_a(double x) { return note(conv_r_a(x)); }
    double carre(double x) { return note(::carre(x)); }
};

// Arc cosine through the arc tangent, from -1 to 1.
template <class Arithmetique>
double arc_cosinus(double x, Arithmetique& calcul) {
    if (x == 0) return calcul.r_a(moteur.pi_valeur / 2);
    if (x == 1) return 0;
    const double t = maths::atan(std::sqrt(1 - calcul.carre(x)) / x);
    return calcul.r_a(t > 0 ? t : t + moteur.pi_valeur);
}

template <class Arithmetique>
double arc_sinus(double x, Arithmetique& calcul) {
    if (std::fabs(x) == 1) return calcul.r_a(x * moteur.pi_valeur / 2);
    return calcul.r_a(maths::atan(x / std::sqrt(1 - calcul.carre(x))));
}

// SH, CH and TH convert their argument by the angle unit each time that it is written.
template <class Arithmetique>
double sinus_hyperbolique(double x, Arithmetique& calcul) {
    const double a = maths::exp(calcul.a_r(x));
    return (a - maths::exp(calcul.a_r(-x))) / 2;
}

template <class Arithmetique>
double cosinus_hyperbolique(double x, Arithmetique& calcul) {
    const double a = maths::exp(calcul.a_r(x));
    return (a + maths::exp(calcul.a_r(-x))) / 2;
}

template <class Arithmetique>
double tangente_hyperbolique(double x, Arithmetique& calcul) {
    const double a = maths::exp(calcul.a_r(x));
    const double haut = a - maths::exp(calcul.a_r(-x));
    const double b = maths::exp(calcul.a_r(x));
    return haut / (b + maths::exp(calcul.a_r(-x)));
}

inline double racine_cubique(double x) {
    if (x == 0) return 0;
    return x > 0 ? maths::exp(maths::log(x) / 3) : -maths::exp(maths::log(-x) / 3);
}
