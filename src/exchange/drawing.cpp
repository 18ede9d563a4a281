// The drawing of a function or of data. Changes no state.
#include "exchange/drawing.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "exchange/html_text.hpp"

namespace {

constexpr double kLargeur = 640, kHauteur = 400, kGauche = 70, kDroite = 20, kHaut = 20, kBas = 45;
constexpr double kFinesse = 1e-12;    // beside its ends, what an interval must be to have a grid
constexpr double kGrandeur = 1e300;   // larger values, and smaller ones than its inverse, have no grid of their own

struct Intervalle {
    double debut, fin;
    double etendue() const { return fin - debut; }
};

// A number of the drawing's own, with two decimals at most.
std::string coordonnee(double x) {
    std::array<char, 32> texte;
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), std::round(x * 100) / 100);
    return {texte.data(), ecrit.ptr};
}

// A number for the reader, with so many significant digits at most and a decimal comma.
std::string nombre_lu(double x, int chiffres_utiles) {
    std::array<char, 64> texte;
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), x == 0 ? 0.0 : x,
                                     std::chars_format::general, chiffres_utiles);
    std::replace(texte.data(), ecrit.ptr, '.', ',');
    return {texte.data(), ecrit.ptr};
}

// Whether nothing but rounding parts the ends: a grid of such an interval couldn't tell its lines apart.
bool est_plat(Intervalle i) {
    return !(i.etendue() > std::max(std::fabs(i.debut), std::fabs(i.fin)) * kFinesse);
}

// An interval that isn't empty.
Intervalle elargi(Intervalle i) {
    const double taille = std::max(std::fabs(i.debut), std::fabs(i.fin));
    if (!est_plat(i) && taille > 1 / kGrandeur) return i;
    const double marge = taille > 1 / kGrandeur ? taille / 2 : 1;
    return {i.debut - marge, i.fin + marge};
}

// From values to the places of the drawing.
struct Repere {
    Intervalle x, y;
    double px(double v) const { return kGauche + (v - x.debut) / x.etendue() * (kLargeur - kGauche - kDroite); }
    double py(double v) const { return kHauteur - kBas - (v - y.debut) / y.etendue() * (kHauteur - kHaut - kBas); }
    std::string point(double vx, double vy) const { return coordonnee(px(vx)) + "," + coordonnee(py(vy)); }
};

// A step of 1, 2 or 5 times a power of ten that parts the interval into about six.
double pas_rond(double etendue) {
    const double brut = etendue / 6;
    double puissance = 1;
    while (puissance > brut) puissance /= 10;
    while (puissance * 10 <= brut) puissance *= 10;
    for (const double facteur : {1.0, 2.0, 5.0})
        if (facteur * puissance >= brut) return facteur * puissance;
    return 10 * puissance;
}

std::string trait(double x1, double y1, double x2, double y2, std::string_view classe) {
    return "<line class=\"" + std::string(classe) + "\" x1=\"" + coordonnee(x1) + "\" y1=\"" + coordonnee(y1) +
           "\" x2=\"" + coordonnee(x2) + "\" y2=\"" + coordonnee(y2) + "\"/>";
}

std::string etiquette(double x, double y, std::string_view ancre, std::string_view texte) {
    return "<text x=\"" + coordonnee(x) + "\" y=\"" + coordonnee(y) + "\" text-anchor=\"" + std::string(ancre) + "\">" +
           html(texte) + "</text>";
}

// The grid with its numbers, and the axes where they are in sight.
std::string axes(const Repere& r) {
    std::string svg;
    const double bas = kHauteur - kBas, droite = kLargeur - kDroite;
    const double pas_x = pas_rond(r.x.etendue()), pas_y = pas_rond(r.y.etendue());
    for (double k = std::ceil(r.x.debut / pas_x); k * pas_x <= r.x.fin; k += 1) {
        svg += trait(r.px(k * pas_x), kHaut, r.px(k * pas_x), bas, k == 0 ? "axe" : "grille");
        svg += etiquette(r.px(k * pas_x), bas + 20, "middle", nombre_lu(k * pas_x, 6));
    }
    for (double k = std::ceil(r.y.debut / pas_y); k * pas_y <= r.y.fin; k += 1) {
        svg += trait(kGauche, r.py(k * pas_y), droite, r.py(k * pas_y), k == 0 ? "axe" : "grille");
        svg += etiquette(kGauche - 8, r.py(k * pas_y) + 5, "end", nombre_lu(k * pas_y, 6));
    }
    return svg;
}

// The drawing with its title and its description, by which a reader knows it.
std::string cadre(int numero, std::string_view titre, std::string_view description, std::string_view contenu) {
    const std::string n = chiffres(numero);
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\" aria-labelledby=\"titre-" + n +
                      " description-" + n + "\" viewBox=\"0 0 640 400\">";
    svg += "<title id=\"titre-" + n + "\">" + html(titre) + "</title>";
    svg += "<desc id=\"description-" + n + "\">" + html(description) + "</desc>";
    return svg.append(contenu).append("</svg>");
}

// What a curve is drawn between: a few values beside a pole must not make a line of all the others.
Intervalle hauteur_utile(const std::vector<PointTrace>& courbe) {
    std::vector<double> valeurs;
    for (const PointTrace& p : courbe)
        if (p.y) valeurs.push_back(*p.y);
    std::sort(valeurs.begin(), valeurs.end());
    const double bas = valeurs[valeurs.size() / 20], haut = valeurs[valeurs.size() - 1 - valeurs.size() / 20];
    const Intervalle tout{valeurs.front(), valeurs.back()};
    if (!(tout.etendue() > 8 * (haut - bas)) || est_plat({bas, haut})) return elargi(tout);
    return {bas - (haut - bas) / 2, haut + (haut - bas) / 2};
}

// The pieces of the curve between the places where it has no value or leaves the drawing.
std::string traces(const std::vector<PointTrace>& courbe, const Repere& r) {
    std::string svg, points;
    const auto finit = [&] {
        if (!points.empty()) svg += "<polyline class=\"courbe\" points=\"" + points + "\"/>";
        points.clear();
    };
    for (const PointTrace& p : courbe) {
        if (!p.y || !(*p.y >= r.y.debut && *p.y <= r.y.fin)) {
            finit();
            continue;
        }
        if (!points.empty()) points += ' ';
        points += r.point(p.x, *p.y);
    }
    finit();
    return svg;
}

std::string rond(double x, double y) {
    return "<circle class=\"point\" cx=\"" + coordonnee(x) + "\" cy=\"" + coordonnee(y) + "\" r=\"4\"/>";
}

// The rows of the table that are in sight.
std::string points_de_table(const std::vector<RangeeNotee>& rangees, const Repere& r) {
    std::string svg;
    for (const RangeeNotee& p : rangees)
        if (p.y >= r.y.debut && p.y <= r.y.fin) svg += rond(r.px(p.x), r.py(p.y));
    return svg;
}

// What the drawing shows, in words.
std::string description_de_courbe(const std::vector<PointTrace>& courbe, const Intervalle& vue) {
    const PointTrace *bas = nullptr, *haut = nullptr;
    bool trou = false;
    for (const PointTrace& p : courbe) {
        trou = trou || !p.y;
        if (!p.y) continue;
        if (bas == nullptr || *p.y < *bas->y) bas = &p;
        if (haut == nullptr || *p.y > *haut->y) haut = &p;
    }
    std::string mots = std::string("Environ : plus petite valeur "_fr) + nombre_lu(*bas->y, 4) +
                       std::string(" en "_fr) + nombre_lu(bas->x, 4) + std::string(", plus grande valeur "_fr) +
                       nombre_lu(*haut->y, 4) + std::string(" en "_fr) + nombre_lu(haut->x, 4) + ".";
    if (trou) mots += std::string(" La fonction n'est pas définie partout."_fr);
    if (*bas->y < vue.debut || *haut->y > vue.fin)
        mots += std::string(" Les valeurs les plus grandes sortent du dessin."_fr);
    return mots;
}

// The bounds of the groups, in x or in y.
template <class Valeur>
Intervalle bornes(const std::vector<GroupeNote>& groupes, Valeur valeur) {
    Intervalle i{valeur(groupes.front()), valeur(groupes.front())};
    for (const GroupeNote& g : groupes) i = {std::min(i.debut, valeur(g)), std::max(i.fin, valeur(g))};
    return i;
}

double de_x(const GroupeNote& g) { return g.x; }
double de_y(const GroupeNote& g) { return g.y; }

// The interval with some room on both sides.
Intervalle aere(Intervalle i) {
    i = elargi(i);
    const double marge = i.etendue() / 20;
    return {i.debut - marge, i.fin + marge};
}

// The part of the line that is in sight.
std::string droite(const LigneRapport& ligne, const Repere& r) {
    std::vector<PointTrace> points;
    for (int i = 0; i <= 100; ++i) {
        const double x = r.x.debut + r.x.etendue() * i / 100;
        points.push_back({x, ligne.pente * x + ligne.ordonnee});
    }
    return traces(points, r);
}

std::string nuage(const LigneRapport& ligne) {
    const std::vector<GroupeNote>& groupes = ligne.donnees.groupes;
    const Repere r{aere(bornes(groupes, de_x)), aere(bornes(groupes, de_y))};
    std::string svg = axes(r) + droite(ligne, r);
    for (const GroupeNote& g : groupes)
        svg += rond(r.px(g.x), r.py(g.y));
    const std::string titre = std::string("Nuage de "_fr) + chiffres(static_cast<long long>(groupes.size())) +
                              std::string(" points, ligne "_fr) + chiffres(ligne.numero);
    const std::string mots = std::string("Droite de régression de Y en X : Y = "_fr) + nombre_lu(ligne.pente, 4) +
                             (ligne.ordonnee < 0 ? " X - " : " X + ") + nombre_lu(std::fabs(ligne.ordonnee), 4) +
                             std::string(", environ. X va de "_fr) + nombre_lu(bornes(groupes, de_x).debut, 4) +
                             std::string(" à "_fr) + nombre_lu(bornes(groupes, de_x).fin, 4) +
                             std::string(", Y de "_fr) + nombre_lu(bornes(groupes, de_y).debut, 4) +
                             std::string(" à "_fr) + nombre_lu(bornes(groupes, de_y).fin, 4) + ".";
    return cadre(ligne.numero, titre, mots, svg);
}

// Each value once, with the frequencies of all its groups.
std::vector<GroupeNote> effectifs_par_valeur(std::vector<GroupeNote> groupes) {
    std::sort(groupes.begin(), groupes.end(), [](const GroupeNote& a, const GroupeNote& b) { return a.x < b.x; });
    std::vector<GroupeNote> sommes;
    for (const GroupeNote& g : groupes) {
        if (!sommes.empty() && sommes.back().x == g.x)
            sommes.back().effectif += g.effectif;
        else
            sommes.push_back(g);
    }
    return sommes;
}

std::string batons(const LigneRapport& ligne) {
    const std::vector<GroupeNote> groupes = effectifs_par_valeur(ligne.donnees.groupes);
    double haut = 0;
    for (const GroupeNote& g : groupes) haut = std::max(haut, g.effectif);
    const Repere r{aere(bornes(groupes, de_x)), elargi({0, haut * 1.05})};
    std::string svg = axes(r);
    for (const GroupeNote& g : groupes) svg += trait(r.px(g.x), r.py(0), r.px(g.x), r.py(g.effectif), "baton");
    const std::string titre = std::string("Effectifs de "_fr) + chiffres(static_cast<long long>(groupes.size())) +
                              std::string(" valeurs différentes, ligne "_fr) + chiffres(ligne.numero);
    const std::string mots = std::string("De "_fr) + nombre_lu(groupes.front().x, 4) + std::string(" à "_fr) +
                             nombre_lu(groupes.back().x, 4) + std::string(", plus grand effectif "_fr) +
                             nombre_lu(haut, 4) + ".";
    return cadre(ligne.numero, titre, mots, svg);
}

bool se_dessine(double x) { return std::fabs(x) < kGrandeur; }

bool se_dessinent(const std::vector<GroupeNote>& groupes) {
    return std::all_of(groupes.begin(), groupes.end(), [](const GroupeNote& g) {
        return se_dessine(g.x) && se_dessine(g.y) && se_dessine(g.effectif);
    });
}

}  // namespace

std::string dessin_de_courbe(const LigneRapport& ligne) {
    const std::vector<PointTrace>& courbe = ligne.courbe;
    if (std::none_of(courbe.begin(), courbe.end(), [](const PointTrace& p) { return p.y.has_value(); })) return "";
    const Intervalle x{std::min(courbe.front().x, courbe.back().x), std::max(courbe.front().x, courbe.back().x)};
    const Repere r{elargi(x), hauteur_utile(courbe)};
    if (!se_dessine(r.x.etendue()) || !se_dessine(r.y.etendue())) return "";
    std::string titre("Courbe de "_fr);
    titre.append(ligne.fonction).append(" pour "_fr) += static_cast<char>('A' + ligne.donnees.variable - 1);
    titre.append(" de "_fr).append(nombre_lu(x.debut, 6)).append(" à "_fr).append(nombre_lu(x.fin, 6));
    titre.append(", ligne "_fr).append(chiffres(ligne.numero));
    return cadre(ligne.numero, titre, description_de_courbe(courbe, r.y),
                 axes(r) + traces(courbe, r) + points_de_table(ligne.donnees.rangees, r));
}

std::string dessin_de_donnees(const LigneRapport& ligne) {
    const std::vector<GroupeNote>& groupes = ligne.donnees.groupes;
    if (groupes.empty() || !se_dessinent(groupes)) return "";
    return ligne.donnees.couples ? nuage(ligne) : batons(ligne);
}
