// Cuts an interval into pieces: the edges of the domain by bisection, jumps and poles by halving the cells in which
// the values change sign or more than their neighbours do.
#include "study/grid.hpp"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <optional>
#include <utility>

namespace {

constexpr std::size_t kZones = 64;
constexpr double kDansLaZone = 0.381966;   // never at a point that a user would choose
constexpr int kMoitiesMaxi = 64;
constexpr double kCourt = 1e-3;            // of a cell: a piece as short is a place
constexpr double kEcartAPart = 1e-3;       // a value that far from what its neighbours tend to stands apart
constexpr double kRondsMaxi = 2000;        // numbers of one decimal, halves or whole numbers that are tried

// The two sides of a cut, with the last values that f has there.
struct Coupure {
    Bout avant, apres;
    double x_avant, x_apres;
};

// A cell that is being halved.
struct Maille {
    double g, yg, d, yd;
    double ecart() const { return std::fabs(yd - yg); }
};

// Halves the cell towards the change of sign or the larger difference. False at a number without a value, which is
// then `trou`.
bool resserre(const Courbe& f, Maille& m, double largeur, double& ecart_avant, double& trou) {
    const bool signe = (m.yg > 0) != (m.yd > 0) && m.yg != 0 && m.yd != 0;
    std::array<double, kMoitiesMaxi> ecarts{};
    int n = 0;
    for (; n < kMoitiesMaxi; ++n) {
        ecarts[static_cast<std::size_t>(n)] = m.ecart();
        const double milieu = m.g + (m.d - m.g) / 2;
        if (milieu == m.g || milieu == m.d || m.d - m.g < 1e-14 * largeur) break;
        const double y = f(milieu);
        if (std::isnan(y)) {
            trou = milieu;
            return false;
        }
        const bool a_gauche = signe ? (y > 0) != (m.yg > 0) : std::fabs(y - m.yg) > std::fabs(m.yd - y);
        (a_gauche ? m.d : m.g) = milieu;
        (a_gauche ? m.yd : m.yg) = y;
    }
    ecart_avant = ecarts[static_cast<std::size_t>(std::max(0, std::min(n, kMoitiesMaxi - 1) - 10))];
    return true;
}

// A number without a value inside a cell whose ends have some.
Coupure coupe_au_trou(const Courbe& f, const Maille& m, double trou) {
    double g = m.g, d = m.d, vers_g = trou, vers_d = trou;
    const Lieu gauche = frontiere(f, g, vers_g);
    const Lieu droite = frontiere(f, d, vers_d);
    return {{gauche, Borne::domaine, false, {}}, {droite, Borne::domaine, false, {}}, gauche.x, droite.x};
}

// A jump or a pole between the two ends of a cell that can't be halved any more. The number of few figures there,
// if there is one, is its place, and belongs to the side whose value it has.
Coupure coupe_au_saut(const Courbe& f, const Maille& m) {
    const Lieu lieu = lieu_rond((m.g + m.d) / 2, 4 * (m.d - m.g) + 2 * DBL_EPSILON * std::fabs(m.d));
    const double y = f(lieu.x);
    const Borne borne = lieu.incertitude == 0 && std::isnan(y) ? Borne::domaine : Borne::saut;
    const bool seul = lieu.incertitude > 0 || std::isnan(y);
    const bool a_gauche = !seul && std::fabs(y - m.yg) <= std::fabs(y - m.yd);
    return {{lieu, borne, a_gauche, {}}, {lieu, borne, !seul && !a_gauche, {}}, m.g, m.d};
}

// The jump or pole in cell i, if there is one: values that stay apart however near the points come.
std::optional<Coupure> coupure_en(const Grille& grille, std::size_t i) {
    const std::vector<double>& y = grille.y;
    const auto ecart = [&](std::size_t k) {
        const double e = std::fabs(y[k + 1] - y[k]);
        return std::isnan(e) ? 0 : e;
    };
    const double voisins = std::max(i > 0 ? ecart(i - 1) : 0, i + 2 < y.size() ? ecart(i + 1) : 0);
    const bool signe = (y[i] > 0) != (y[i + 1] > 0) && y[i] != 0 && y[i + 1] != 0;
    if (!signe && ecart(i) <= 3 * voisins) return {};
    Maille m{grille.x[i], y[i], grille.x[i + 1], y[i + 1]};
    double ecart_avant = 0, trou = 0;
    if (!resserre(grille.f, m, grille.maille, ecart_avant, trou)) return coupe_au_trou(grille.f, m, trou);
    const double flou = 64 * grille.bruit(m.g) + 1e-9 * std::max(std::fabs(y[i]), std::fabs(y[i + 1]));
    if (m.ecart() <= 0.7 * ecart_avant || m.ecart() <= flou) return {};
    return coupe_au_saut(grille.f, m);
}

// Whether the value at the edge of the domain is none of the piece: the piece tends to something else there.
bool est_a_part(double y, const Cote& cote) {
    if (cote.tendance == Tendance::inconnue) return false;
    if (cote.tendance != Tendance::valeur) return true;
    return std::fabs(cote.y - y) > 4 * cote.incertitude + kEcartAPart * std::max(std::fabs(y), std::fabs(cote.y));
}

// What f tends to at an end of a piece, from within; its value where the interval ends. True when the edge of the
// domain has a value that isn't the piece's: it is left out of the piece.
bool regarde_bout(const Grille& grille, Bout& bout, double vers, double largeur) {
    const double y = grille.f(bout.lieu.x);
    if (bout.borne == Borne::domaine) bout.compris = !std::isnan(y);
    const double pas = std::copysign(std::min(grille.maille, largeur / 4), vers);
    const auto tend = [&] { return tendance(grille.f, bout.lieu.x, pas, 16 * bout.lieu.incertitude); };
    const bool a_part = bout.compris && bout.borne == Borne::domaine && largeur > 0 && est_a_part(y, tend());
    bout.compris = bout.compris && !a_part;
    bout.cote = bout.compris || largeur == 0 ? Cote{Tendance::valeur, y, 0} : tend();
    return a_part;
}

// The edge of the domain that has a value of its own, as a piece.
Morceau point_seul(const Grille& grille, const Lieu& lieu, Borne gauche, Borne droite) {
    const double y = grille.f(lieu.x);
    const Cote cote{Tendance::valeur, y, 0};
    return {{lieu, gauche, true, cote}, {lieu, droite, true, cote}, {lieu.x}, {y}};
}

void ajoute_point(const Courbe& f, Morceau& m, double x) {
    if (!m.x.empty() && m.x.back() >= x) return;
    const double y = f(x);
    if (std::isnan(y)) return;
    m.x.push_back(x);
    m.y.push_back(y);
}

// The pieces as the walk over the grid finds them.
struct Decoupage {
    const Grille& grille;
    std::vector<Morceau> morceaux{};
    Morceau ouvert{};
    bool est_ouvert = false;

    void ouvre(const Bout& bout, double x) {
        ouvert = Morceau{};
        ouvert.gauche = bout;
        est_ouvert = true;
        ajoute_point(grille.f, ouvert, x);
    }
    void ferme(const Bout& bout, double x) {
        ajoute_point(grille.f, ouvert, x);
        ouvert.droite = bout;
        est_ouvert = false;
        const double largeur = ouvert.droite.lieu.x - ouvert.gauche.lieu.x;
        const bool seul_avant = regarde_bout(grille, ouvert.gauche, 1, largeur) && sans_bord(ouvert.gauche, true);
        const bool seul_apres = regarde_bout(grille, ouvert.droite, -1, largeur) && sans_bord(ouvert.droite, false);
        if (largeur < kCourt * grille.maille) valeur_d_un_court();
        const Lieu fin = ouvert.droite.lieu;
        if (seul_avant) morceaux.push_back(point_seul(grille, ouvert.gauche.lieu, Borne::domaine, Borne::saut));
        morceaux.push_back(std::move(ouvert));
        if (seul_apres) morceaux.push_back(point_seul(grille, fin, Borne::saut, Borne::domaine));
    }
    // A piece that is too short for points that come nearer has one value.
    void valeur_d_un_court() {
        if (ouvert.x.empty()) return;
        for (Bout* const bout : {&ouvert.gauche, &ouvert.droite})
            if (bout->cote.tendance == Tendance::inconnue)
                bout->cote = {Tendance::valeur, bout == &ouvert.gauche ? ouvert.y.front() : ouvert.y.back(), 0};
    }
    // Takes the edge out of the open piece, whose value is another one. True when it is a place of its own: one
    // that is known no better than its neighbours belongs to a pole.
    bool sans_bord(Bout& bout, bool gauche) {
        Morceau& m = ouvert;
        if (m.x.size() > 1) {
            m.x.erase(gauche ? m.x.begin() : m.x.end() - 1);
            m.y.erase(gauche ? m.y.begin() : m.y.end() - 1);
        }
        if (bout.lieu.incertitude > 0) return false;
        bout.borne = Borne::saut;
        return true;
    }
    void maille(std::size_t i) {
        const bool avant = !std::isnan(grille.y[i]), apres = !std::isnan(grille.y[i + 1]);
        double oui = grille.x[avant ? i : i + 1], non = grille.x[avant ? i + 1 : i];
        if (avant && apres) {
            const auto coupure = coupure_en(grille, i);
            if (!coupure) return;
            ferme(coupure->avant, coupure->x_avant);
            ouvre(coupure->apres, coupure->x_apres);
        } else if (avant || apres) {
            const Lieu lieu = frontiere(grille.f, oui, non);
            const Bout bout{lieu, Borne::domaine, false, {}};
            avant ? ferme(bout, lieu.x) : ouvre(bout, lieu.x);
        }
    }
};

}  // namespace

double Grille::bruit(double en) const {
    const double place = (en - debut) / (fin - debut) * static_cast<double>(kZones);
    const auto zone = static_cast<std::size_t>(std::clamp(place, 0.0, static_cast<double>(kZones - 1)));
    return 4 * std::max({bruits[zone], bruits[zone + 1], bruits[zone + 2]});
}

double Grille::flou(double en) const {
    double pire = 0;
    for (int k = -4; k <= 4; ++k) pire = std::max(pire, bruit_en(f, en + k * kDansLaZone / 32 * maille, maille));
    return std::min(bruit(en), 8 * pire);
}

namespace {

// Puts numbers of few figures without a value between the points of the grid: a formula may well have a hole there
// and nowhere else.
void cherche_trous_ronds(Grille& g) {
    for (const double parts : {10.0, 2.0, 1.0}) {
        const double premier = std::ceil(g.debut * parts), dernier = std::floor(g.fin * parts);
        if (!(dernier - premier <= kRondsMaxi)) continue;
        for (double k = premier; k <= dernier; ++k) {
            const auto place = std::lower_bound(g.x.begin(), g.x.end(), k / parts);
            if (place == g.x.end() || *place == k / parts || !std::isnan(g.f(k / parts))) continue;
            g.y.insert(g.y.begin() + (place - g.x.begin()), std::nan(""));
            g.x.insert(place, k / parts);
        }
        return;
    }
}

}  // namespace

Grille pose_grille(const Courbe& f, double debut, double fin) {
    Grille g{f, debut, fin, (fin - debut) / static_cast<double>(kMailles), {}, {}};
    const auto n = static_cast<double>(kMailles);
    for (std::size_t i = 0; i <= kMailles; ++i) {
        const auto k = static_cast<double>(i);
        g.x.push_back(i == 0 ? debut : i == kMailles ? fin : (debut * (n - k) + fin * k) / n);
        g.y.push_back(f(g.x.back()));
    }
    for (std::size_t zone = 0; zone < kZones; ++zone) {
        const double part = (static_cast<double>(zone) + kDansLaZone) / static_cast<double>(kZones);
        g.bruits[zone + 1] = bruit_en(f, debut + part * (fin - debut), g.maille);
    }
    cherche_trous_ronds(g);
    return g;
}

std::vector<Morceau> decoupe(const Grille& grille) {
    Decoupage d{grille};
    const Bout debut{{grille.debut, 0}, Borne::intervalle, true, {}};
    if (!std::isnan(grille.y.front())) d.ouvre(debut, grille.debut);
    for (std::size_t i = 0; i + 1 < grille.x.size(); ++i) {
        d.maille(i);
        if (d.est_ouvert) ajoute_point(grille.f, d.ouvert, grille.x[i + 1]);
    }
    const Bout fin{{grille.fin, 0}, Borne::intervalle, true, {}};
    if (d.est_ouvert) d.ferme(fin, grille.fin);
    return std::move(d.morceaux);
}

std::array<Morceau, 2> coupe_au_pole(const Grille& grille, const Morceau& morceau, const Lieu& lieu) {
    Morceau gauche, droite;
    gauche.gauche = morceau.gauche;
    droite.droite = morceau.droite;
    gauche.droite = droite.gauche = {lieu, Borne::saut, false, {}};
    for (std::size_t i = 0; i < morceau.x.size(); ++i) {
        if (std::fabs(morceau.x[i] - lieu.x) <= lieu.incertitude) continue;
        Morceau& cote = morceau.x[i] < lieu.x ? gauche : droite;
        cote.x.push_back(morceau.x[i]);
        cote.y.push_back(morceau.y[i]);
    }
    regarde_bout(grille, gauche.droite, -1, lieu.x - gauche.gauche.lieu.x);
    regarde_bout(grille, droite.gauche, 1, droite.droite.lieu.x - lieu.x);
    return {std::move(gauche), std::move(droite)};
}
