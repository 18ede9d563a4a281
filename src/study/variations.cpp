// Extremes: turning points of the values on the grid, refined by Brent's method; flat stretches; variations and
// signs between them.
#include "study/variations.hpp"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>

#include "study/zeros.hpp"

namespace {

constexpr std::size_t kPalierMini = 40;     // points of one value, to be a flat stretch: a smooth top has fewer
constexpr double kEgal = 1e-13;             // values nearer than that, beside themselves, are one
constexpr double kTouche = 1e-8;            // an extreme so near 0, beside the values around it, touches it

// What two values near x must differ by to be two.
double seuil(const Grille& grille, double x, double y) { return 2 * grille.bruit(x) + kEgal * std::fabs(y); }

// The index of the last point that has the value of point i.
std::size_t fin_egale(const Grille& grille, const Morceau& m, std::size_t i) {
    const double arrondi = 4 * DBL_EPSILON * std::fabs(m.y[i]);
    std::size_t j = i;
    for (; j + 1 < m.x.size(); ++j) {
        const double ecart = std::fabs(m.y[j + 1] - m.y[i]);
        if (ecart > arrondi && (ecart > grille.bruit(m.x[j]) || ecart > grille.flou(m.x[j]))) break;
    }
    return j;
}

// The end of a flat stretch between a point of it and the one beside it.
Lieu bout_plat(const Grille& grille, double dedans, double dehors, double valeur) {
    const double tolerance = std::max(grille.flou(dedans), 4 * DBL_EPSILON * std::fabs(valeur));
    for (int i = 0; i < 60; ++i) {
        const double milieu = dedans + (dehors - dedans) / 2;
        if (milieu == dedans || milieu == dehors) break;
        (std::fabs(grille.f(milieu) - valeur) <= tolerance ? dedans : dehors) = milieu;
    }
    return lieu_rond(dedans, std::max(std::fabs(dehors - dedans), 1e-12 * grille.maille));
}

// A turning point of the values: point `rang` is the highest or the lowest of a stretch.
struct Tournant {
    std::size_t rang;
    bool maximum;
};

// The turning points inside the piece: the values rise or fall beyond them by more than rounding does.
std::vector<Tournant> tournants(const Grille& grille, const Morceau& m) {
    std::vector<Tournant> trouves;
    std::size_t haut = 0, bas = 0;
    int sens = 0;
    for (std::size_t i = 1; i < m.x.size(); ++i) {
        if (m.y[i] > m.y[haut]) haut = i;
        if (m.y[i] < m.y[bas]) bas = i;
        if (sens >= 0 && m.y[haut] - m.y[i] > seuil(grille, m.x[i], m.y[haut])) {
            if (sens > 0) trouves.push_back({haut, true});
            sens = -1;
            bas = i;
        } else if (sens <= 0 && m.y[i] - m.y[bas] > seuil(grille, m.x[i], m.y[bas])) {
            if (sens < 0) trouves.push_back({bas, false});
            sens = 1;
            haut = i;
        } else {
            continue;
        }
        haut = sens > 0 ? i : haut;
        bas = sens < 0 ? i : bas;
    }
    return trouves;
}

// How far from x the value can't be told from y.
double flou_du_sommet(const Grille& grille, double x, double y) {
    const double bruit = std::min(bruit_en(grille.f, x, grille.maille), grille.bruit(x));
    const double marge = 2 * bruit + 4 * DBL_EPSILON * std::fabs(y);
    double pas = std::max(1e-9 * grille.maille, 4 * DBL_EPSILON * std::fabs(x));
    while (pas < grille.maille) {
        const bool loin = !(std::fabs(grille.f(x - pas) - y) <= marge) && !(std::fabs(grille.f(x + pas) - y) <= marge);
        if (loin) break;
        pas *= 2;
    }
    return pas;
}

// The point of a V: where the line on its left ends, drawn from points that come nearer. Leaves x and y as they are
// where that is no better.
void affine_pointe(const Courbe& g, double maille, double& x, double& y) {
    for (const double part : {1e-2, 1e-4, 1e-6}) {
        const double pas = part * maille, centre = x;
        const double gauche = g(centre - pas), droite = g(centre + pas);
        const double pente_g = gauche - g(centre - 2 * pas), pente_d = g(centre + 2 * pas) - droite;
        // Both lines meet where they have the same value.
        const double ici = centre + pas * (gauche - droite + pente_g + pente_d) / (pente_d - pente_g);
        if (!(std::fabs(ici - centre) < 2 * pas) || !(g(ici) < y)) continue;
        x = ici;
        y = g(ici);
    }
}

// The extreme around a turning point, refined between the points beside it.
Extreme affine(const Grille& grille, const Morceau& m, const Tournant& t) {
    const double signe = t.maximum ? -1 : 1;
    const Courbe g = [&](double x) { return signe * grille.f(x); };
    const std::size_t dernier = m.x.size() - 1;
    const Encadrement e = cherche_minimum(g, m.x[std::max<std::size_t>(t.rang, 1) - 1],
                                          m.x[std::min(t.rang + 1, dernier)], 1e-10 * grille.maille);
    double x = e.x, y = g(e.x);
    if (!(y <= signe * m.y[t.rang])) {
        x = m.x[t.rang];
        y = signe * m.y[t.rang];
    }
    affine_pointe(g, grille.maille, x, y);
    const double flou = std::max(flou_du_sommet(grille, x, signe * y), 4e-9 * std::fabs(x));
    const double rond = nombre_rond(x, flou, kDecimalesExactes);
    if (g(rond) <= y) {
        x = rond;
        y = g(rond);
    }
    Extreme extreme;
    extreme.lieu = extreme.fin = {x, flou};
    extreme.y = signe * y;
    extreme.incertitude = 4 * std::min(bruit_en(grille.f, x, grille.maille), grille.bruit(x)) +
                          4 * DBL_EPSILON * std::fabs(y);
    extreme.maximum = t.maximum;
    return extreme;
}

// Whether the values run away on both sides: no extreme but a pole.
bool est_pole(const Grille& grille, Extreme& e) {
    const double au_mieux = 2e-9 * std::fabs(e.lieu.x) + 1e-9 * grille.maille;   // of Brent's method there
    const double finesse = 4 * au_mieux;
    const auto fuit = [&](double pas) {
        const Tendance t = tendance(grille.f, e.lieu.x, pas, finesse).tendance;
        return t == (e.maximum ? Tendance::plus_infini : Tendance::moins_infini);
    };
    if (!fuit(grille.maille) || !fuit(-grille.maille)) return false;
    e.lieu.incertitude = au_mieux;
    return true;
}

// The zeros that an extreme gives away: it touches 0, or passes it between two points of the grid.
void prend_zeros(const Grille& grille, Partie& p, const Tournant& t, const Extreme& e) {
    const std::vector<double>&x = p.morceau.x, &y = p.morceau.y;
    const std::size_t g = t.rang - 1, d = t.rang + 1;
    const double echelle = std::max(std::fabs(y[g]), std::fabs(y[d]));
    const double y0 = e.y;
    if (std::fabs(y0) <= std::max(grille.bruit(e.lieu.x), kTouche * echelle)) {
        const bool exact = y0 == 0 && std::round(e.lieu.x * 1e6) / 1e6 == e.lieu.x;
        ajoute_zero(p.zeros, {{e.lieu.x, exact ? 0 : e.lieu.incertitude}, exact, false, y0}, grille.maille / 2);
        return;
    }
    if ((y0 > 0) == (y[g] > 0) || (y0 > 0) == (y[d] > 0) || (y0 > 0) == (y[t.rang] > 0)) return;
    ajoute_zero(p.zeros, zero_entre(grille, x[g], y[g], e.lieu.x, y0), 0);
    ajoute_zero(p.zeros, zero_entre(grille, e.lieu.x, y0, x[d], y[d]), 0);
}

// A flat top or bottom: the extreme lasts from one end of the stretch to the other.
bool sur_un_palier(const Partie& p, double x, bool maximum, std::vector<Extreme>& extremes) {
    for (const Palier& palier : p.paliers)
        if (x >= palier.debut.x - palier.debut.incertitude && x <= palier.fin.x + palier.fin.incertitude) {
            extremes.push_back({palier.debut, palier.fin, palier.y, 0, maximum});
            return true;
        }
    return false;
}

// The value of the piece's point nearest to x.
double valeur_pres(const Morceau& m, double x) {
    const auto apres = std::lower_bound(m.x.begin(), m.x.end(), x);
    return m.y[static_cast<std::size_t>(std::min(apres, m.x.end() - 1) - m.x.begin())];
}

// What f is at an end of a piece, seen from its points: beyond all of them where it runs away.
double valeur_au_bout(const Bout& bout, double voisine) {
    switch (bout.cote.tendance) {
        case Tendance::valeur: return bout.cote.y;
        case Tendance::plus_infini: return HUGE_VAL;
        case Tendance::moins_infini: return -HUGE_VAL;
        case Tendance::inconnue: break;
    }
    return voisine;
}

// A place where the variation may change, with the value there.
struct Repere {
    Lieu lieu;
    double y;
    bool palier_suit;      // a flat stretch begins here
};

std::vector<Repere> reperes(const Partie& p) {
    const Morceau& m = p.morceau;
    std::vector<Repere> r;
    r.push_back({m.gauche.lieu, valeur_au_bout(m.gauche, m.y.front()), false});
    for (const Extreme& e : p.extremes)
        if (e.fin.x == e.lieu.x) r.push_back({e.lieu, e.y, false});
    for (const Palier& palier : p.paliers) {
        r.push_back({palier.debut, palier.y, true});
        r.push_back({palier.fin, palier.y, false});
    }
    r.push_back({m.droite.lieu, valeur_au_bout(m.droite, m.y.back()), false});
    std::stable_sort(r.begin() + 1, r.end() - 1,
                     [](const Repere& a, const Repere& b) { return a.lieu.x < b.lieu.x; });
    return r;
}

}  // namespace

void cherche_paliers(const Grille& grille, Partie& p) {
    const Morceau& m = p.morceau;
    for (std::size_t i = 0; i < m.x.size();) {
        const std::size_t j = fin_egale(grille, m, i);
        const bool tout = i == 0 && j + 1 == m.x.size() && j > 0;
        if ((j - i + 1 >= kPalierMini || tout) && m.y[i] != 0) {
            const Lieu debut = i > 0 ? bout_plat(grille, m.x[i], m.x[i - 1], m.y[i]) : m.gauche.lieu;
            const Lieu fin = j + 1 < m.x.size() ? bout_plat(grille, m.x[j], m.x[j + 1], m.y[i]) : m.droite.lieu;
            p.paliers.push_back({debut, fin, m.y[i]});
        }
        i = std::max(j, i + 1);
    }
    std::sort(p.paliers.begin(), p.paliers.end(),
              [](const Palier& a, const Palier& b) { return a.debut.x < b.debut.x; });
}

std::optional<Lieu> cherche_extremes(const Grille& grille, Partie& p) {
    for (const Tournant& t : tournants(grille, p.morceau)) {
        if (sur_un_palier(p, p.morceau.x[t.rang], t.maximum, p.extremes)) continue;
        Extreme e = affine(grille, p.morceau, t);
        if (est_pole(grille, e)) return e.lieu;
        p.extremes.push_back(e);
        prend_zeros(grille, p, t, e);
    }
    return {};
}

void decrit_variations(Partie& p) {
    const std::vector<Repere> r = reperes(p);
    for (std::size_t i = 0; i + 1 < r.size(); ++i) {
        if (r[i + 1].lieu.x <= r[i].lieu.x) continue;
        const bool infini = std::isinf(r[i].y) || std::isinf(r[i + 1].y);
        const bool egales = !infini && std::fabs(r[i + 1].y - r[i].y) <= kEgal * std::fabs(r[i].y);
        const bool plat = r[i].palier_suit || egales;
        const Sens sens = plat ? Sens::constante : r[i + 1].y > r[i].y ? Sens::croissante : Sens::decroissante;
        if (!p.variations.empty() && p.variations.back().sens == sens)
            p.variations.back().fin = r[i + 1].lieu;
        else
            p.variations.push_back({r[i].lieu, r[i + 1].lieu, sens});
    }
}

void decrit_signes(Partie& p) {
    std::vector<Signe> bornes;   // each zero as a stretch without length, each stretch of zeros
    for (const Zero& z : p.zeros) bornes.push_back({z.lieu, z.lieu, 0});
    for (const Palier& palier : p.paliers)
        if (palier.y == 0) bornes.push_back({palier.debut, palier.fin, 0});
    std::sort(bornes.begin(), bornes.end(), [](const Signe& a, const Signe& b) { return a.debut.x < b.debut.x; });
    bornes.push_back({p.morceau.droite.lieu, p.morceau.droite.lieu, 0});
    Lieu depuis = p.morceau.gauche.lieu;
    for (const Signe& borne : bornes) {
        if (borne.debut.x > depuis.x) {
            const double y = valeur_pres(p.morceau, depuis.x + (borne.debut.x - depuis.x) / 2);
            p.signes.push_back({depuis, borne.debut, y > 0 ? 1 : y < 0 ? -1 : 0});
        }
        if (borne.fin.x > borne.debut.x) p.signes.push_back(borne);
        depuis = borne.fin;
    }
}
