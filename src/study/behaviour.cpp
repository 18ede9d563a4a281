// The behaviour of a function near one point: bisection for the edge of its domain, a sequence of points that come
// nearer for what it tends to.
#include "study/behaviour.hpp"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

constexpr int kPasMaxi = 26;             // 4^-26 of a cell of the grid is far below rounding
constexpr double kInfini = 1e300;        // values beyond that run away
constexpr double kStable = 1e-6;         // a change this small, beside the values, is that of a limit
constexpr std::size_t kQueue = 5;        // last changes that tell whether values run away

double plus_grand(double a, double b) { return std::max(std::fabs(a), std::fabs(b)); }

// Values at x0 + pas, x0 + pas / 4 and so on, as long as there are some and the points differ.
std::vector<double> approche(const Courbe& f, double x0, double pas, double finesse) {
    std::vector<double> valeurs;
    const double fin = std::max(finesse, 16 * DBL_EPSILON * std::fabs(x0));
    for (int k = 0; k < kPasMaxi && std::fabs(pas) > fin; ++k, pas /= 4) {
        const double y = f(x0 + pas);
        if (std::isnan(y)) break;
        valeurs.push_back(y);
    }
    return valeurs;
}

// The first place where the values stand still before rounding stirs them up again; -1 where they never do.
int stable(const std::vector<double>& y) {
    for (std::size_t k = 0; k + 2 < y.size(); ++k) {
        const double pas = std::fabs(y[k + 1] - y[k]);
        const double suivant = std::fabs(y[k + 2] - y[k + 1]);
        const double echelle = plus_grand(y[k], y.front());
        if (pas <= kStable * echelle && suivant >= pas) return static_cast<int>(k + 1);
    }
    return -1;
}

// Whether the last values run away in one direction, by steps that don't get smaller.
Tendance fuite(const std::vector<double>& y) {
    if (y.size() < kQueue + 2) return Tendance::inconnue;
    double avant = 0;
    for (std::size_t k = y.size() - kQueue - 1; k + 1 < y.size(); ++k) {
        const double pas = y[k + 1] - y[k];
        if (avant != 0 && (pas / avant < 0.97 || !std::isfinite(pas))) return Tendance::inconnue;
        avant = pas;
    }
    if (avant == 0) return Tendance::inconnue;
    return avant > 0 ? Tendance::plus_infini : Tendance::moins_infini;
}

// The values come nearer to one that they haven't reached: what is left is what the last steps promise.
Cote prolonge(const std::vector<double>& y) {
    if (y.size() < 3) return {};
    const double pas = y.back() - y[y.size() - 2];
    const double avant = y[y.size() - 2] - y[y.size() - 3];
    if (pas == 0) return {Tendance::valeur, y.back(), 0};
    const double rapport = pas / avant;
    if (!(rapport > 0 && rapport < 0.9)) return {};
    const double reste = pas * rapport / (1 - rapport);
    return {Tendance::valeur, y.back() + reste, std::fabs(reste) + std::fabs(pas)};
}

}  // namespace

double nombre_rond(double x, double marge, int decimales) {
    double facteur = 1;
    for (int k = 0; k <= decimales; ++k, facteur *= 10) {
        const double rond = std::round(x * facteur) / facteur;
        if (std::fabs(rond - x) <= marge) return rond;
    }
    return x;
}

Lieu lieu_rond(double x, double marge) {
    const double rond = nombre_rond(x, marge, kDecimalesExactes);
    return rond != x || std::round(x * 1e6) / 1e6 == x ? Lieu{rond, 0} : Lieu{x, marge};
}

double bruit_en(const Courbe& f, double x, double largeur) {
    double bruit = 0;
    for (const double part : {1e-9, 1.7e-9, 3.1e-9, 5.3e-9}) {
        const double pas = std::max(part * largeur, 4 * DBL_EPSILON * std::fabs(x));
        const double ecart = std::fabs(f(x - pas) - 2 * f(x) + f(x + pas));
        if (!std::isnan(ecart)) bruit = std::max(bruit, ecart);
    }
    return bruit;
}

Lieu frontiere(const Courbe& f, double& oui, double& non) {
    const double largeur = std::fabs(oui - non);
    while (true) {
        const double milieu = oui + (non - oui) / 2;
        if (milieu == oui || milieu == non || std::fabs(non - oui) < 1e-13 * largeur) break;
        (std::isnan(f(milieu)) ? non : oui) = milieu;
    }
    const double marge = 4 * std::fabs(non - oui) + 2 * DBL_EPSILON * std::fabs(oui);
    const double rond = nombre_rond(oui, marge);
    if (std::fabs(rond - oui) > marge || std::round(rond * 1e6) / 1e6 != rond)
        return {(oui + non) / 2, std::fabs(non - oui)};
    (std::isnan(f(rond)) ? non : oui) = rond;
    return {rond, 0};
}

Cote tendance(const Courbe& f, double x0, double pas, double finesse) {
    const std::vector<double> y = approche(f, x0, pas, finesse);
    if (y.size() < 3) return {};
    if (std::fabs(y.back()) > kInfini) return {y.back() > 0 ? Tendance::plus_infini : Tendance::moins_infini, 0, 0};
    if (const int k = stable(y); k >= 0) {
        const auto rang = static_cast<std::size_t>(k);
        return {Tendance::valeur, y[rang], 4 * std::fabs(y[rang] - y[rang - 1])};
    }
    const Tendance sens = fuite(y);
    return sens == Tendance::inconnue ? prolonge(y) : Cote{sens, 0, 0};
}
