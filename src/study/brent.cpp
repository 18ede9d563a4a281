// Brent's methods for zeros (inverse quadratic interpolation, secant, bisection) and minima (parabola, golden
// section), after R. P. Brent, Algorithms for Minimization without Derivatives, 1973, chapters 4 and 5.
#include "study/brent.hpp"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <utility>

namespace {

constexpr int kPasMaxi = 400;                    // far beyond what either method needs
constexpr double kSectionDor = 0.3819660112501051;

// The bracket of a zero: b is the best point, a the one before it, c of the sign opposite to b.
struct Trio {
    double a, fa, b, fb, c, fc;
    double pas;          // of the last step
    double avant;        // of the one before it
};

// After a step: c must be of the other sign, and b the better one of both.
void range_trio(Trio& t) {
    if ((t.fb > 0) == (t.fc > 0)) {
        t.c = t.a;
        t.fc = t.fa;
        t.pas = t.avant = t.b - t.a;
    }
    if (std::fabs(t.fc) < std::fabs(t.fb)) {
        t.a = std::exchange(t.b, t.c);
        t.fa = std::exchange(t.fb, t.fc);
        t.c = t.a;
        t.fc = t.fa;
    }
}

// The step that interpolation proposes, where it falls well inside; otherwise half of the interval.
void choisit_pas(Trio& t, double milieu, double tolerance) {
    if (std::fabs(t.avant) < tolerance || std::fabs(t.fa) <= std::fabs(t.fb)) {
        t.pas = t.avant = milieu;
        return;
    }
    const double s = t.fb / t.fa;
    double p = 2 * milieu * s;
    double q = 1 - s;
    if (t.a != t.c) {
        const double r = t.fb / t.fc;
        const double u = t.fa / t.fc;
        p = s * (2 * milieu * u * (u - r) - (t.b - t.a) * (r - 1));
        q = (u - 1) * (r - 1) * (s - 1);
    }
    if (p > 0) q = -q;
    p = std::fabs(p);
    if (2 * p < std::min(3 * milieu * q - std::fabs(tolerance * q), std::fabs(t.avant * q))) {
        t.avant = std::exchange(t.pas, p / q);
    } else {
        t.pas = t.avant = milieu;
    }
}

Encadrement rend_trio(const Trio& t) {
    if (t.fb == 0) return {t.b, t.b, t.b};
    return {t.b, std::min(t.b, t.c), std::max(t.b, t.c)};
}

// The three best points of a minimum: x the lowest, w and v those before it.
struct Bas {
    double x, fx, w, fw, v, fv;
    double pas = 0, avant = 0;
};

// The step to the top of the parabola through the three points, when it falls inside and shrinks; otherwise the
// golden section of the larger part.
double pas_du_minimum(Bas& b, double gauche, double droite, double tolerance) {
    const double milieu = (gauche + droite) / 2;
    if (std::fabs(b.avant) > tolerance) {
        const double r = (b.x - b.w) * (b.fx - b.fv);
        double q = (b.x - b.v) * (b.fx - b.fw);
        double p = (b.x - b.v) * q - (b.x - b.w) * r;
        q = 2 * (q - r);
        if (q > 0) p = -p;
        q = std::fabs(q);
        const double ancien = std::exchange(b.avant, b.pas);
        if (std::fabs(p) < std::fabs(q * ancien / 2) && p > q * (gauche - b.x) && p < q * (droite - b.x)) {
            const double u = b.x + p / q;
            const bool au_bord = u - gauche < 2 * tolerance || droite - u < 2 * tolerance;
            return au_bord ? std::copysign(tolerance, milieu - b.x) : p / q;
        }
    }
    b.avant = b.x < milieu ? droite - b.x : gauche - b.x;
    return kSectionDor * b.avant;
}

// Takes the new point u among the best three, and narrows the interval.
void prend_point(Bas& b, double u, double fu, double& gauche, double& droite) {
    if (fu <= b.fx) {
        (u >= b.x ? gauche : droite) = b.x;
        b.v = std::exchange(b.w, std::exchange(b.x, u));
        b.fv = std::exchange(b.fw, std::exchange(b.fx, fu));
        return;
    }
    (u < b.x ? gauche : droite) = u;
    if (fu <= b.fw || b.w == b.x) {
        b.v = std::exchange(b.w, u);
        b.fv = std::exchange(b.fw, fu);
    } else if (fu <= b.fv || b.v == b.x || b.v == b.w) {
        b.v = u;
        b.fv = fu;
    }
}

}  // namespace

Encadrement cherche_zero(const Courbe& f, double a, double fa, double b, double fb, double tolerance) {
    Trio t{a, fa, b, fb, a, fa, b - a, b - a};
    for (int i = 0; i < kPasMaxi; ++i) {
        range_trio(t);
        const double seuil = 2 * DBL_EPSILON * std::fabs(t.b) + tolerance / 2;
        const double milieu = (t.c - t.b) / 2;
        if (std::fabs(milieu) <= seuil || t.fb == 0) break;
        choisit_pas(t, milieu, seuil);
        t.a = t.b;
        t.fa = t.fb;
        t.b += std::fabs(t.pas) > seuil ? t.pas : std::copysign(seuil, milieu);
        t.fb = f(t.b);
        if (std::isnan(t.fb)) return {t.b, std::min(t.a, t.c), std::max(t.a, t.c)};
    }
    return rend_trio(t);
}

Encadrement cherche_minimum(const Courbe& f, double a, double b, double tolerance) {
    double gauche = std::min(a, b), droite = std::max(a, b);
    const double debut = gauche + kSectionDor * (droite - gauche);
    const double valeur = f(debut);
    Bas bas{debut, valeur, debut, valeur, debut, valeur};
    for (int i = 0; i < kPasMaxi; ++i) {
        const double milieu = (gauche + droite) / 2;
        const double seuil = 1e-9 * std::fabs(bas.x) + tolerance;
        if (std::fabs(bas.x - milieu) <= 2 * seuil - (droite - gauche) / 2) break;
        bas.pas = pas_du_minimum(bas, gauche, droite, seuil);
        const double u = bas.x + (std::fabs(bas.pas) >= seuil ? bas.pas : std::copysign(seuil, bas.pas));
        const double fu = f(u);
        if (std::isnan(fu)) break;
        prend_point(bas, u, fu, gauche, droite);
    }
    return {bas.x, gauche, droite};
}
