// The formulas of the one-argument functions, written once: the call of a formula computes them
// through the procedures that report failures, the repeated evaluation through plain arithmetic.
// Angles are in the unit of `modes`. Hold no state.
#pragma once

#include <cmath>
#include <limits>

#include "base/maths.hpp"
#include "engine/reader.hpp"
#include "state/context.hpp"

// Half a turn in the unit of angles; radians are not converted.
inline double demi_tour() { return modes.unite_angle == 1 ? 180 : 200; }
inline bool en_radians() { return modes.unite_angle == 2; }

// The steps of a formula as plain arithmetic: a failure shows as an infinite or undefined result.
struct ArithmetiqueSimple {
    double a_r(double x) const { return en_radians() ? x : x * moteur.pi_valeur / demi_tour(); }
    double r_a(double x) const { return en_radians() ? x : x * demi_tour() / moteur.pi_valeur; }
    double carre(double x) const { return x * x; }
};

// True for the functions that `formule_de` knows.
constexpr bool a_une_formule(int fonction) {
    return (fonction >= kCos && fonction <= kAch) || fonction == kSqr || fonction == kSqrt ||
           fonction == kSqr3;
}

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

inline double racine_cubique(double x) {
    if (x == 0) return 0;
    return x > 0 ? maths::exp(maths::log(x) / 3) : -maths::exp(maths::log(-x) / 3);
}

// Value of function `fonction` at x, inside its domain. SH, CH and TH convert their argument by the
// angle unit each time that it is written; ASH, ACH and ATH are the same without conversion, and no
// inverse functions, whatever their names say.
template <class Arithmetique>
double formule_de(int fonction, double x, Arithmetique& calcul) {
    switch (fonction) {
        case kCos: return maths::cos(calcul.a_r(x));
        case kSin: return maths::sin(calcul.a_r(x));
        case kTan: return maths::tan(calcul.a_r(x));
        case kAcos: return arc_cosinus(x, calcul);
        case kAsin: return arc_sinus(x, calcul);
        case kAtan: return calcul.r_a(maths::atan(x));
        case kAbs: return std::fabs(x);
        case kExp: return maths::exp(x);
        case kLn: return maths::log(x);
        case kLog: return maths::log(x) / maths::log(10.0);
        case kSh: {
            const double a = maths::exp(calcul.a_r(x));
            return (a - maths::exp(calcul.a_r(-x))) / 2;
        }
        case kCh: {
            const double a = maths::exp(calcul.a_r(x));
            return (a + maths::exp(calcul.a_r(-x))) / 2;
        }
        case kTh: {
            const double a = maths::exp(calcul.a_r(x));
            const double haut = a - maths::exp(calcul.a_r(-x));
            const double b = maths::exp(calcul.a_r(x));
            return haut / (b + maths::exp(calcul.a_r(-x)));
        }
        case kAth: return (maths::exp(x) - maths::exp(-x)) / (maths::exp(x) + maths::exp(-x));
        case kAsh: return (maths::exp(x) - maths::exp(-x)) / 2;
        case kAch: return (maths::exp(x) + maths::exp(-x)) / 2;
        case kSqr: return calcul.carre(x);
        case kSqrt: return std::sqrt(x);
        default: return racine_cubique(x);
    }
}

// The words with which a function refuses an argument outside its domain are its own (functions.cpp);
// here only whether it does. The tangent refuses the exact quarter turn alone: 270 degrees pass.
template <class Arithmetique>
bool hors_domaine(int fonction, double x, Arithmetique& calcul) {
    switch (fonction) {
        case kTan: return std::fabs(calcul.a_r(x)) == moteur.pi_valeur / 2;
        case kAcos:
        case kAsin: return !(std::fabs(x) <= 1);
        case kLn:
        case kLog: return x <= 0;
        case kSqrt: return x < 0;
        default: return false;
    }
}
