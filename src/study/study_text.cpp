// The lines of a study: short facts in French, each number with what it may be wrong by.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "study/sheet_study.hpp"

namespace {

constexpr double kFinesse = 1e-6;        // of the interval: what is told of places
constexpr int kDecimalesMaxi = 12;
constexpr std::size_t kFaitsMaxi = 200;  // lines of one kind
constexpr std::size_t kTrousEnLigne = 5; // holes that are told on one line
constexpr int kChiffres = 7;             // figures of such a value
constexpr double kMinuscule = 1e-6;      // a value below is told by its own figures, with an exponent
constexpr double kBruit = 1e-9;          // beside the values around it: what may be nothing but rounding
constexpr std::size_t kVoisins = 40;     // points of the grid on each side that are around a place
constexpr double kArrondi = 4e-15;       // beside a value: what powers and functions round away

// Decimals with which a millionth of the extent is told.
int decimales_pour(double etendue) {
    int d = 0;
    for (double unite = 1; unite > etendue * kFinesse && d < kDecimalesMaxi; unite /= 10) ++d;
    return d;
}

double unite_de(int decimales) {
    double unite = 1;
    for (int i = 0; i < decimales; ++i) unite /= 10;
    return unite;
}

// A number with so many decimals, none that is 0 at the end.
std::string nombre(double x, int decimales) {
    if (std::fabs(x) >= 1e15) return texte_general(x);
    std::string texte = texte_fixe(x, decimales);
    if (texte.find('.') != std::string::npos) texte.resize(texte.find_last_not_of('0') + 1);
    if (texte.ends_with('.')) texte.pop_back();
    return texte == "-0" ? "0" : texte;
}

// A tiny value with so many of its figures.
std::string avec_chiffres(double v, int chiffres) {
    double debut = 1, unite = 1;
    for (int i = 1; i < chiffres; ++i) debut *= 10;
    while (std::fabs(v) < debut * unite && unite > 1e-300) unite /= 10;
    while (std::fabs(v) >= 10 * debut * unite) unite *= 10;
    return texte_general(std::round(v / unite) * unite);
}

constexpr std::string_view kEnviron = "environ "_fr, kA = " à "_fr, kPres = " près"_fr;

// How numbers of one study are written.
struct Ecriture {
    const Etude& etude;
    std::string lettre;
    int dx = 6, dy = 6;              // decimals of places and of values

    // A number of few figures as it is; another one rounded to `fines` decimals, with "environ" and, where fewer than
    // `promises` of them are sure, with how far it may be off.
    std::string valeur(double v, double incertitude, int promises, int fines) const {
        if (incertitude == 0 && std::round(v * 1e6) / 1e6 == v) return texte_general(v);
        int d = fines;
        while (d > 0 && unite_de(d) < 2 * incertitude) --d;
        const std::string texte = std::string(kEnviron) + nombre(v, d);
        return d >= promises ? texte : texte + std::string(kA) + nombre(unite_de(d), d) + std::string(kPres);
    }
    std::string lieu(const Lieu& l) const { return valeur(l.x, l.incertitude, dx, dx); }
    std::string en(const Lieu& l) const { return lettre + " = " + lieu(l); }
    std::string de(const Lieu& l) const {
        const std::string texte = lieu(l);
        return (texte.starts_with('e') ? "d'" : "de ") + texte;
    }
    std::string de_a(const Lieu& a, const Lieu& b) const { return de(a) + std::string(kA) + lieu(b); }
    // The largest value around x.
    double alentour(double x) const {
        const std::vector<double>& places = etude.x;
        const auto ici = static_cast<std::size_t>(std::lower_bound(places.begin(), places.end(), x) - places.begin());
        double haut = 0;
        for (std::size_t i = ici - std::min(ici, kVoisins); i < std::min(ici + kVoisins, places.size()); ++i)
            if (!std::isnan(etude.y[i])) haut = std::max(haut, std::fabs(etude.y[i]));
        return haut;
    }
    // Decimals of a value at x: those of all values, or as many as its own figures take above rounding.
    int decimales_de(double v, double x) const {
        int d = v == 0 ? dy : std::max(dy, decimales_pour(std::fabs(v)));
        const double bruit = kBruit * alentour(x);
        while (d > dy && unite_de(d) <= bruit) --d;
        return d;
    }
    // A value at x; one that rounding alone keeps from few figures is given them, as the sheet does.
    std::string y(double v, double incertitude, double x) const {
        const double rond = std::round(v * 1e6) / 1e6;
        const bool pareil = std::fabs(rond - v) <= kArrondi * std::fabs(v);
        if (incertitude <= 1e-300 && pareil) return nombre(rond, kDecimalesExactes);
        const double sure = std::fabs(v) * kFinesse;
        if (v != 0 && std::fabs(v) < kMinuscule && incertitude < sure && kBruit * alentour(x) < sure)
            return std::string(kEnviron) + avec_chiffres(v, kChiffres);
        return valeur(v, incertitude, dy, decimales_de(v, x));
    }
    // A stretch that is shorter than what is told of places isn't told.
    bool court(const Lieu& a, const Lieu& b) const { return b.x - a.x < unite_de(dx); }
    std::string cote(const Bout& bout) const {
        const Cote& c = bout.cote;
        switch (c.tendance) {
            case Tendance::valeur: return y(c.y, c.incertitude, bout.lieu.x);
            case Tendance::plus_infini: return std::string("plus l'infini"_fr);
            case Tendance::moins_infini: return std::string("moins l'infini"_fr);
            case Tendance::inconnue: break;
        }
        return std::string("une valeur que le calcul ne montre pas"_fr);
    }
};

// The extent of the values, without the highest and lowest fiftieth: a pole doesn't count.
double etendue_des_valeurs(const Etude& e) {
    std::vector<double> y;
    for (const double v : e.y)
        if (!std::isnan(v)) y.push_back(v);
    if (y.empty()) return 1;
    std::sort(y.begin(), y.end());
    const std::size_t marge = y.size() / 50;
    const double etendue = y[y.size() - 1 - marge] - y[marge];
    return etendue > 0 ? etendue : std::max(std::fabs(y[marge]), 1e-6);
}

using Lignes = std::vector<std::string>;

std::string texte(std::string_view mots) { return std::string(mots); }

bool est_infini(const Bout& b) {
    return b.cote.tendance == Tendance::plus_infini || b.cote.tendance == Tendance::moins_infini;
}

// Whether two pieces are one stretch of the domain: f jumps between them, and by a finite height.
bool se_touchent(const Bout& a, const Bout& b) {
    return a.borne == Borne::saut && b.borne == Borne::saut && !est_infini(a) && !est_infini(b);
}

// A stretch of the domain, from the first of its pieces to the last.
struct Intervalle {
    const Bout* gauche;
    const Bout* droite;
};

std::vector<Intervalle> domaine(const Etude& e) {
    std::vector<Intervalle> d;
    for (const Partie& p : e.parties) {
        const Bout &g = p.morceau.gauche, &f = p.morceau.droite;
        if (!d.empty() && se_touchent(*d.back().droite, g))
            d.back().droite = &f;
        else
            d.push_back({&g, &f});
    }
    return d;
}

std::string mots_compris(const Bout& b) { return texte(b.compris ? " compris"_fr : " exclu"_fr); }

// "partout", "partout sauf en ..."; many holes have a line each.
void dit_trous(const std::vector<Intervalle>& d, const Ecriture& w, Lignes& l) {
    const std::string partout = texte("Domaine : définie partout"_fr), sauf = texte(" sauf en "_fr);
    const std::size_t trous = d.size() - 1;
    std::string ligne = partout;
    if (trous > kTrousEnLigne) l.push_back(partout + sauf + combien(trous, "point"_fr, "points"_fr));
    for (std::size_t i = 0; i < trous; ++i) {
        const std::string trou = w.en(d[i].droite->lieu);
        if (trous > kTrousEnLigne)
            l.push_back(texte("Domaine :"_fr) + sauf + trou);
        else
            ligne += (i == 0 ? sauf : texte(", en "_fr)) + trou;
    }
    if (trous <= kTrousEnLigne) l.push_back(ligne);
}

// Everywhere, everywhere but at some places, or the stretches.
void dit_domaine(const Etude& e, const Ecriture& w, Lignes& l) {
    const auto d = domaine(e);
    const std::string tete = texte("Domaine : "_fr);
    if (d.empty()) return l.push_back(tete + texte("définie nulle part"_fr));
    bool points = d.front().gauche->borne == Borne::intervalle && d.back().droite->borne == Borne::intervalle;
    for (std::size_t i = 0; i + 1 < d.size(); ++i) {
        const Lieu &a = d[i].droite->lieu, &b = d[i + 1].gauche->lieu;
        points = points && b.x - a.x <= a.incertitude + b.incertitude;
    }
    if (points) return dit_trous(d, w, l);
    for (const Intervalle& s : d)
        l.push_back(s.gauche->lieu.x == s.droite->lieu.x
                        ? tete + texte("définie en "_fr) + w.en(s.gauche->lieu) + texte(" seul"_fr)
                        : tete + texte("définie "_fr) + w.de(s.gauche->lieu) + mots_compris(*s.gauche) +
                              texte(" à "_fr) + w.lieu(s.droite->lieu) + mots_compris(*s.droite));
}

// Jumps, and what f tends to at the edges of the domain and at poles.
void dit_bords(const Etude& e, const Ecriture& w, Lignes& l) {
    for (std::size_t i = 0; i < e.parties.size(); ++i) {
        const Bout& g = e.parties[i].morceau.gauche;
        const Bout* avant = i > 0 ? &e.parties[i - 1].morceau.droite : nullptr;
        const bool saut = avant != nullptr && se_touchent(*avant, g);
        if (saut) {
            const std::string de = w.cote(*avant);
            l.push_back(texte("Saut en "_fr) + w.en(g.lieu) +
                        (de.starts_with('u') || de.starts_with('e') ? ", d'" : ", de ") + de + texte(" à "_fr) +
                        w.cote(g));
            continue;
        }
        const auto limite = [&](const Bout& b, std::string_view cote) {
            const std::string ou = w.en(b.lieu);
            l.push_back(b.compris ? texte("Au bord : "_fr) + "f(" + w.lieu(b.lieu) + ") = " + w.cote(b)
                                  : texte("Limite en "_fr) + ou + texte(cote) + " : " + w.cote(b));
        };
        const bool point = avant != nullptr && avant->lieu.x == e.parties[i - 1].morceau.gauche.lieu.x;
        if (avant != nullptr && !point) limite(*avant, " par la gauche"_fr);
        limite(g, " par la droite"_fr);
    }
    if (e.parties.empty()) return;
    const Bout& fin = e.parties.back().morceau.droite;
    if (fin.lieu.x == e.parties.back().morceau.gauche.lieu.x) return;
    l.push_back(fin.compris ? texte("Au bord : "_fr) + "f(" + w.lieu(fin.lieu) + ") = " + w.cote(fin)
                            : texte("Limite en "_fr) + w.en(fin.lieu) + texte(" par la gauche"_fr) + " : " +
                                  w.cote(fin));
}

// A sign that lasts across a jump is told once.
std::vector<Signe> signes_suivis(const Etude& e) {
    std::vector<Signe> suivis;
    const Bout* avant = nullptr;
    for (const Partie& p : e.parties) {
        for (std::size_t i = 0; i < p.signes.size(); ++i) {
            const Signe& s = p.signes[i];
            const bool suit = i == 0 && avant != nullptr && se_touchent(*avant, p.morceau.gauche) &&
                              !suivis.empty() && suivis.back().signe == s.signe;
            suit ? void(suivis.back().fin = s.fin) : suivis.push_back(s);
        }
        avant = &p.morceau.droite;
    }
    return suivis;
}

void dit_signes(const Etude& e, const Ecriture& w, Lignes& l) {
    for (const Signe& s : signes_suivis(e))
        if (!w.court(s.debut, s.fin)) l.push_back(texte("Signe : "_fr) +
                    texte(s.signe > 0 ? "positive "_fr : s.signe < 0 ? "négative "_fr : "nulle "_fr) +
                    w.de_a(s.debut, s.fin));
}

std::string mots_zero(const Ecriture& w, const Zero& z) {
    std::string ligne = texte("Zéro : "_fr) + w.en(z.lieu);
    if (z.traverse) return ligne;
    ligne += texte(", sans changer de signe"_fr);
    if (!z.exact && z.reste != 0) ligne += texte(", où f vaut environ "_fr) + avec_chiffres(z.reste, 2);
    return ligne;
}

void dit_zeros(const Etude& e, const Ecriture& w, Lignes& l) {
    std::vector<Zero> zeros = zeros_de(e);
    Lignes paliers;
    for (const Partie& p : e.parties)
        for (const Palier& palier : p.paliers)
            if (palier.y == 0 && w.court(palier.debut, palier.fin))
                zeros.push_back({palier.debut, false, true, 0});
            else if (palier.y == 0)
                paliers.push_back(texte("Zéros : f est nulle "_fr) + w.de_a(palier.debut, palier.fin));
    std::stable_sort(zeros.begin(), zeros.end(), [](const Zero& a, const Zero& b) { return a.lieu.x < b.lieu.x; });
    l.insert(l.end(), paliers.begin(), paliers.end());
    if (zeros.empty() && paliers.empty()) return l.push_back(texte("Zéros : aucun trouvé"_fr));
    if (!zeros.empty()) l.push_back(texte("Zéros : "_fr) + combien(zeros.size(), "trouvé"_fr, "trouvés"_fr));
    for (const Zero& z : zeros) l.push_back(mots_zero(w, z));
}

std::string mots_extreme(const Ecriture& w, const Extreme& x) {
    const std::string genre = texte(x.maximum ? "Maximum : "_fr : "Minimum : "_fr);
    const std::string valeur = w.y(x.y, std::max(x.incertitude, 1e-300), x.lieu.x);
    if (x.fin.x == x.lieu.x) return genre + valeur + texte(" en "_fr) + w.en(x.lieu);
    return genre + valeur + " " + w.de_a(x.lieu, x.fin);
}

void dit_extremes(const Etude& e, const Ecriture& w, Lignes& l) {
    std::size_t nombre_extremes = 0;
    for (const Partie& p : e.parties) nombre_extremes += p.extremes.size();
    l.push_back(texte("Extrêmes à l'intérieur : "_fr) +
                (nombre_extremes == 0 ? texte("aucun trouvé"_fr)
                                      : combien(nombre_extremes, "trouvé"_fr, "trouvés"_fr)));
    for (const Partie& p : e.parties)
        for (const Extreme& x : p.extremes) l.push_back(mots_extreme(w, x));
}

std::string_view mots_sens(Sens sens) {
    switch (sens) {
        case Sens::croissante: return "croissante"_fr;
        case Sens::decroissante: return "décroissante"_fr;
        case Sens::constante: break;
    }
    return "constante"_fr;
}

void dit_variations(const Etude& e, const Ecriture& w, Lignes& l) {
    for (const Partie& p : e.parties)
        for (const Variation& v : p.variations)
            if (!w.court(v.debut, v.fin))
                l.push_back(texte("Variation : "_fr) + texte(mots_sens(v.sens)) + " " + w.de_a(v.debut, v.fin));
}

void dit_rencontre(const Rencontre& r, const Ecriture& w, Lignes& l) {
    const std::string avec = texte("Intersection avec "_fr) + r.autre.texte + texte(", ligne "_fr) +
                             chiffres(r.autre.ligne) + " : ";
    if (!r.comparable)
        return l.push_back(avec + texte("pas cherchée, une variable change entre les deux lignes"_fr));
    if (r.lieux.empty() && r.confondues.empty()) return l.push_back(avec + texte("aucune trouvée"_fr));
    for (std::size_t i = 0; i < r.lieux.size(); ++i)
        l.push_back(avec + w.en(r.lieux[i].lieu) + ", y = " + w.y(r.y[i], 1e-300, r.lieux[i].lieu.x));
    for (const Palier& p : r.confondues) l.push_back(avec + texte("les deux sont égales "_fr) + w.de_a(p.debut, p.fin));
}

// What f is at a place inside a piece where the variation changes.
std::string valeur_au_changement(const Partie& p, const Lieu& lieu, const Ecriture& w) {
    for (const Extreme& x : p.extremes)
        if (x.lieu.x == lieu.x || x.fin.x == lieu.x)
            return w.y(x.y, std::max(x.incertitude, 1e-300), lieu.x) +
                   texte(x.maximum ? ", maximum"_fr : ", minimum"_fr);
    for (const Palier& palier : p.paliers)
        if (palier.debut.x == lieu.x || palier.fin.x == lieu.x) return w.y(palier.y, 1e-300, lieu.x);
    return texte("?"_fr);
}

std::string_view mots_suite(Sens sens) {
    switch (sens) {
        case Sens::croissante: return "croît"_fr;
        case Sens::decroissante: return "décroît"_fr;
        case Sens::constante: break;
    }
    return "constante"_fr;
}

// The columns of the table, from left to right. A stretch that is too short to be told is a place.
Tableau tableau_de(const Etude& e, const Ecriture& w) {
    Tableau t;
    for (const Partie& p : e.parties) {
        const Bout &gauche = p.morceau.gauche, &droite = p.morceau.droite;
        t.push_back({w.en(gauche.lieu), w.cote(gauche), ""});
        if (w.court(gauche.lieu, droite.lieu)) continue;
        for (std::size_t i = 0; i < p.variations.size(); ++i) {
            const Lieu& fin = p.variations[i].fin;
            const bool derniere = i + 1 == p.variations.size();
            t.back().suite = texte(mots_suite(p.variations[i].sens));
            t.push_back({w.en(fin), derniere ? w.cote(droite) : valeur_au_changement(p, fin, w), ""});
        }
    }
    return t;
}

// The table as lines: a place with its value, then how f goes on from there.
void dit_tableau(const Etude& e, const Ecriture& w, Lignes& l) {
    l.push_back(texte("Tableau de variations"_fr));
    for (const ColonneDeVariations& c : tableau_de(e, w)) {
        l.push_back(c.lieu + " ; f = " + c.valeur);
        if (!c.suite.empty()) l.push_back(c.suite);
    }
}

// Whether the function turns faster than the grid can follow: it changes its sign at a place on whose two sides it
// has the same one, or has hardly ten points from one extreme to the next.
bool oscille(const Etude& e) {
    std::size_t extremes = 0;
    for (const Partie& p : e.parties) {
        extremes += p.extremes.size();
        for (std::size_t i = 0; i + 1 < p.signes.size(); ++i)
            for (const Zero& z : p.zeros)
                if (z.traverse && z.lieu.x == p.signes[i].fin.x && z.lieu.x == p.signes[i + 1].debut.x &&
                    p.signes[i].signe * p.signes[i + 1].signe > 0)
                    return true;
    }
    return extremes > kMailles / 10;
}

// One kind of facts: the first of them, and how many more there are.
void ajoute_section(Lignes& l, Lignes section) {
    const std::size_t autres = section.size() - std::min(section.size(), kFaitsMaxi);
    section.resize(section.size() - autres);
    l.insert(l.end(), section.begin(), section.end());
    if (autres > 0) l.push_back(texte("et "_fr) + combien(autres, "autre ligne"_fr, "autres lignes"_fr));
}

// What isn't read as it is written comes first: all else is about another function.
void dit_lecture(const EtudeDeFeuille& etude, Lignes& l) {
    if (!etude.non_lu.empty()) l.push_back(texte("Attention, non lu : "_fr) + etude.non_lu);
    if (etude.autrement)
        l.push_back(texte("Attention, une partie de la fonction n'est pas lue comme elle est écrite"_fr));
}

Ecriture ecriture_de(const EtudeDeFeuille& etude) {
    Ecriture w{etude.etude, std::string(1, etude.fonction.lettre)};
    w.dx = decimales_pour(etude.etude.fin - etude.etude.debut);
    w.dy = decimales_pour(etendue_des_valeurs(etude.etude));
    return w;
}

// One kind of facts of the study.
void ajoute(const Ecriture& w, void (*dit)(const Etude&, const Ecriture&, Lignes&), Lignes& l) {
    Lignes faits;
    dit(w.etude, w, faits);
    ajoute_section(l, std::move(faits));
}

}  // namespace

std::vector<std::string> faits_d_etude(const EtudeDeFeuille& etude) {
    const Etude& e = etude.etude;
    const Ecriture w = ecriture_de(etude);
    Lignes l;
    l.push_back(texte("Étude de "_fr) + etude.fonction.texte + ", " + w.lettre + " " +
                w.de_a({e.debut, 0}, {e.fin, 0}));
    l.push_back(texte("Précision, sauf mention : "_fr) + w.lettre + texte(" à "_fr) + nombre(unite_de(w.dx), w.dx) +
                texte(" près, f à "_fr) + nombre(unite_de(w.dy), w.dy) + texte(" près"_fr) +
                (w.dy < kDecimalesExactes ? texte(" ou à 7 chiffres"_fr) : ""));
    dit_lecture(etude, l);
    ajoute(w, dit_domaine, l);
    const bool trop_vite = oscille(e);
    if (trop_vite)
        l.push_back(texte("Attention, la fonction oscille trop vite pour cet intervalle : prenez-en un plus court"_fr));
    else
        ajoute(w, dit_signes, l);
    ajoute(w, dit_zeros, l);
    ajoute(w, dit_extremes, l);
    if (!trop_vite) ajoute(w, dit_variations, l);
    ajoute(w, dit_bords, l);
    for (const Rencontre& r : etude.rencontres) dit_rencontre(r, w, l);
    return l;
}

Tableau tableau_de_variations(const EtudeDeFeuille& etude) {
    return oscille(etude.etude) ? Tableau{} : tableau_de(etude.etude, ecriture_de(etude));
}

std::vector<std::string> lignes_d_etude(const EtudeDeFeuille& etude) {
    Lignes l = faits_d_etude(etude);
    if (!oscille(etude.etude)) ajoute(ecriture_de(etude), dit_tableau, l);
    return l;
}
