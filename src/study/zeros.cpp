// Zeros of a piece: changes of sign refined by Brent's method, points that are 0, stretches of zeros.
#include "study/zeros.hpp"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>

namespace {

constexpr std::size_t kPalierMini = 10;    // points that are 0 one after the other, to be a stretch of zeros

// A number of few figures.
bool est_court(double x) { return std::round(x * 1e6) / 1e6 == x; }

// How far f may be told from 0 around x: what rounding blurs.
double flou_autour(const Grille& grille, double x, double largeur) {
    const double bruit = std::min(4 * bruit_en(grille.f, x, grille.maille), grille.bruit(x));
    double pas = std::max({largeur, 2 * DBL_EPSILON * std::fabs(x), DBL_EPSILON * grille.maille});
    while (pas < grille.maille) {
        const double gauche = std::fabs(grille.f(x - pas)), droite = std::fabs(grille.f(x + pas));
        if (!(gauche <= bruit || droite <= bruit)) break;
        pas *= 2;
    }
    return pas;
}

// Sign of a value that rounding doesn't blur; 0 otherwise.
int signe_net(const Grille& grille, double x, double y) {
    if (y == 0 || (std::fabs(y) <= grille.bruit(x) && std::fabs(y) <= grille.flou(x))) return 0;
    return y > 0 ? 1 : y < 0 ? -1 : 0;
}

// The end of a stretch of zeros: between a point of it and the one beside it.
Lieu bout_de_palier(const Grille& grille, double dedans, double dehors) {
    for (int i = 0; i < 60; ++i) {
        const double milieu = dedans + (dehors - dedans) / 2;
        if (milieu == dedans || milieu == dehors) break;
        (signe_net(grille, milieu, grille.f(milieu)) == 0 ? dedans : dehors) = milieu;
    }
    return lieu_rond(dedans, std::max(std::fabs(dehors - dedans), 1e-12 * grille.maille));
}

// A stretch of zeros from point i to point j of the piece.
void ajoute_palier(const Grille& grille, Partie& p, std::size_t i, std::size_t j) {
    const std::vector<double>& x = p.morceau.x;
    const Lieu debut = i > 0 ? bout_de_palier(grille, x[i], x[i - 1]) : p.morceau.gauche.lieu;
    const Lieu fin = j + 1 < x.size() ? bout_de_palier(grille, x[j], x[j + 1]) : p.morceau.droite.lieu;
    p.paliers.push_back({debut, fin, 0});
}

// Whether f is 0 beside the points, too: the stretch is short, but it is one.
bool reste_nulle(const Grille& grille, double debut, double fin) {
    const double pas = 0.381966 * grille.maille;
    return grille.f(debut - pas) == 0 || grille.f(fin + pas) == 0;
}

// A point or a few that are 0, between i and j: a zero that is crossed, or touched, or stands at an end.
void ajoute_points(const Grille& grille, Partie& p, std::size_t i, std::size_t j) {
    const std::vector<double>&x = p.morceau.x, &y = p.morceau.y;
    const bool milieu = i > 0 && j + 1 < x.size();
    if (reste_nulle(grille, x[i], x[j])) return ajoute_palier(grille, p, i, j);
    if (milieu && (y[i - 1] > 0) != (y[j + 1] > 0) && i != j)
        return p.zeros.push_back(zero_entre(grille, x[i - 1], y[i - 1], x[j + 1], y[j + 1]));
    std::size_t k = i;
    for (std::size_t n = i; n <= j; ++n)
        if (std::fabs(y[n]) < std::fabs(y[k])) k = n;
    const double rond = nombre_rond(x[k], 4 * DBL_EPSILON * std::fabs(x[k]), kDecimalesExactes);
    Zero z;
    z.exact = est_court(rond) && grille.f(rond) == 0;
    z.lieu = {z.exact ? rond : x[k], z.exact ? 0 : flou_autour(grille, x[k], x[j] - x[i])};
    z.traverse = !milieu || (y[i - 1] > 0) != (y[j + 1] > 0);
    z.reste = y[k];
    p.zeros.push_back(z);
}

}  // namespace

Zero zero_entre(const Grille& grille, double a, double ya, double b, double yb) {
    const Encadrement e = cherche_zero(grille.f, a, ya, b, yb, 1e-15 * grille.maille);
    Zero z;
    z.lieu = {e.x, flou_autour(grille, e.x, e.droite - e.gauche)};
    const double marge = std::max(z.lieu.incertitude, 4 * DBL_EPSILON * std::fabs(e.x));
    const double rond = nombre_rond(e.x, marge, kDecimalesExactes);
    if (est_court(rond) && grille.f(rond) == 0) {
        z.exact = true;
        z.lieu = {rond, 0};
    }
    return z;
}

void cherche_zeros(const Grille& grille, Partie& p) {
    const std::vector<double>&x = p.morceau.x, &y = p.morceau.y;
    int avant = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const int signe = signe_net(grille, x[i], y[i]);
        if (signe == 0) {
            std::size_t j = i;
            while (j + 1 < x.size() && signe_net(grille, x[j + 1], y[j + 1]) == 0) ++j;
            const bool long_ = j - i + 1 >= kPalierMini || (j > i && i == 0 && j + 1 == x.size());
            long_ ? ajoute_palier(grille, p, i, j) : ajoute_points(grille, p, i, j);
            i = j;
        } else if (avant != 0 && signe != avant) {
            p.zeros.push_back(zero_entre(grille, x[i - 1], y[i - 1], x[i], y[i]));
        }
        avant = signe;
    }
}

void ajoute_zero(std::vector<Zero>& zeros, const Zero& zero, double distance) {
    for (const Zero& z : zeros)
        if (std::fabs(z.lieu.x - zero.lieu.x) <= distance + z.lieu.incertitude + zero.lieu.incertitude) return;
    const auto apres = [](const Zero& a, const Zero& b) { return a.lieu.x < b.lieu.x; };
    zeros.insert(std::upper_bound(zeros.begin(), zeros.end(), zero, apres), zero);
}
