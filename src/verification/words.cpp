// The words of a record, part by part. A part knows whether something follows it in its group: only then its
// end is said. A group is what an end closes: a bracket, a value of a function, the whole formula.
#include "verification/words.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "engine/reading.hpp"
#include "functions/table.hpp"
#include "platform/platform.hpp"
#include "verification/function_words.hpp"
#include "verification/sign_words.hpp"

namespace {

using Genre = GenreNoeud;

// Where a part stands: what follows it, and whether it is all that its group holds.
enum class Suite { seule, a_la_fin, suivie };

// The record as a tree, and the sentence that is being made of it.
struct Lecteur {
    const Releve& releve;
    std::string_view formule;            // the text that was read
    std::string_view ecrit;              // and what the user wrote
    std::vector<std::int32_t> premier;   // of each node, where its children begin in `enfants`
    std::vector<std::int32_t> enfants;
    std::string phrase;

    const Noeud& noeud(std::int32_t i) const { return releve.noeuds[static_cast<std::size_t>(i)]; }
    std::int32_t enfant(std::int32_t i, int rang) const {
        return enfants[static_cast<std::size_t>(premier[static_cast<std::size_t>(i)] + rang)];
    }
    Genre genre(std::int32_t i) const { return noeud(i).genre; }
    void dit(std::string_view mots) { ajoute_mots(phrase, mots); }
};

// The roots of the list: parts that no node has taken. Fills the children in.
std::vector<std::int32_t> range_enfants(Lecteur& l) {
    std::vector<std::int32_t> attente;
    l.premier.reserve(l.releve.noeuds.size());
    for (std::size_t i = 0; i < l.releve.noeuds.size(); ++i) {
        const auto n = static_cast<std::size_t>(l.releve.noeuds[i].arite);
        l.premier.push_back(static_cast<std::int32_t>(l.enfants.size()));
        l.enfants.insert(l.enfants.end(), attente.end() - static_cast<std::ptrdiff_t>(n), attente.end());
        attente.resize(attente.size() - n);
        attente.push_back(static_cast<std::int32_t>(i));
    }
    return attente;
}

bool parmi(Genre genre, std::initializer_list<Genre> genres) {
    return std::ranges::find(genres, genre) != genres.end();
}

bool est_pourcent(Genre g) { return parmi(g, {Genre::plus_pourcent, Genre::moins_pourcent}); }
bool est_ou(Genre g) { return parmi(g, {Genre::ou, Genre::oux}); }
bool est_somme(Genre g) { return parmi(g, {Genre::plus, Genre::moins}); }
bool est_produit(Genre g) { return parmi(g, {Genre::fois, Genre::divise}); }

void dit_partie(Lecteur& l, std::int32_t i, Suite suite);

// The name of a letter: "A" for 1.
std::string lettre(int rang) { return mots_lettre(static_cast<char>('A' + rang - 1)); }

// A literal as it stands, without the mark of a decimal one; hexadecimal digits one by one.
std::string mots_nombre(std::string_view texte) {
    if (texte.starts_with('#')) return std::string(texte.substr(1));
    if (!texte.starts_with('$')) return std::string(texte);
    std::string mots("hexadécimal"_fr);
    for (const char c : texte.substr(1)) (mots += ' ') += c;
    return mots;
}

// A part with words around it, which the engine takes together although no bracket says so.
void dit_bloc(Lecteur& l, std::int32_t i) {
    l.dit("bloc");
    dit_partie(l, i, Suite::a_la_fin);
    l.dit("fin bloc");
}

// A part in front of an operator, as a block where its words would be taken apart.
void dit_devant(Lecteur& l, std::int32_t i, bool bloc) {
    if (bloc)
        dit_bloc(l, i);
    else
        dit_partie(l, i, Suite::suivie);
}

// The same behind an operator.
void dit_derriere(Lecteur& l, std::int32_t i, bool bloc, Suite suite) {
    if (bloc)
        dit_bloc(l, i);
    else
        dit_partie(l, i, suite == Suite::suivie ? Suite::suivie : Suite::a_la_fin);
}

// A value that needs no bracket to be heard as one: a number, a name, with a sign or without.
bool est_simple(const Lecteur& l, std::int32_t i) {
    const Noeud& n = l.noeud(i);
    if (parmi(n.genre, {Genre::moins_unaire, Genre::plus_unaire})) {
        const Genre g = l.genre(l.enfant(i, 0));
        return parmi(g, {Genre::nombre, Genre::lettre, Genre::matrice});
    }
    if (n.genre == Genre::appel) return ligne_fonction(n.numero).lecture == Lecture::nom_seul;
    return parmi(n.genre, {Genre::nombre, Genre::lettre, Genre::matrice});
}

// The call of a function of one value. Its end is said when something follows, or when the value is a group.
void dit_un_argument(Lecteur& l, std::int32_t i, const MotsFonction& mots, Suite suite) {
    l.dit(mots.debut);
    const std::int32_t argument = l.enfant(i, 0);
    const bool simple = est_simple(l, argument);
    if (!simple) l.dit("parenthèse"_fr);
    dit_partie(l, argument, Suite::seule);
    if (!simple || suite == Suite::suivie) l.dit(mots.fin);
}

// For each group of a data set, whether the user wrote how often it counts: `virgules` commas are in front of
// that. Where nothing was written it counts once.
std::vector<bool> effectifs_ecrits(std::string_view ecrit, int virgules) {
    std::vector<bool> ecrits;
    const std::size_t ouvrante = std::min(ecrit.find('('), ecrit.size());
    std::string_view reste = ecrit.substr(ouvrante, ecrit.find(')') - ouvrante);
    while (true) {
        const std::size_t fin = std::min(reste.find(';'), reste.size());
        ecrits.push_back(std::ranges::count(reste.substr(0, fin), ',') >= virgules);
        if (fin == reste.size()) return ecrits;
        reste.remove_prefix(fin + 1);
    }
}

// The values of a data set: groups of a value, or of two, and how often it counts where that was written.
void dit_groupes(Lecteur& l, std::int32_t i, const MotsFonction& mots) {
    const bool couples = l.noeud(i).numero == kStatXY;
    const int taille = couples ? 3 : 2;
    const std::vector<bool> ecrits = effectifs_ecrits(l.ecrit, taille - 1);
    l.dit(mots.debut);
    for (int rang = 0; rang < l.noeud(i).arite; ++rang) {
        const int place = rang % taille;
        const auto groupe = static_cast<std::size_t>(rang / taille);
        if (place == 0 && rang > 0) l.dit(mots.entre[1]);
        if (place == 1 && couples) l.dit("avec");
        if (place == taille - 1 && groupe < ecrits.size() && !ecrits[groupe]) continue;
        if (place == taille - 1) l.dit(mots.entre[0]);
        dit_partie(l, l.enfant(i, rang), Suite::seule);
    }
    l.dit(mots.fin);
}

void dit_appel(Lecteur& l, std::int32_t i, Suite suite) {
    const Noeud& n = l.noeud(i);
    const MotsFonction& mots = mots_fonction(n.numero);
    const Lecture lecture = ligne_fonction(n.numero).lecture;
    if (n.arite == 0) return l.dit(mots.debut);   // a name alone, or a call that was refused at its start
    if (lecture == Lecture::un) return dit_un_argument(l, i, mots, suite);
    if (lecture == Lecture::groupes) return dit_groupes(l, i, mots);
    l.dit(mots.debut);
    for (int rang = 0; rang < n.arite; ++rang) {
        if (rang > 0) l.dit(mots.entre[static_cast<std::size_t>(std::min(rang, 2) - 1)]);
        dit_partie(l, l.enfant(i, rang), Suite::seule);
    }
    l.dit(mots.fin);
}

// "au carré" and "au cube" for the exponents 2 and 3, "puissance" for others. Behind the exponent its end is
// said when something follows that could belong to it.
void dit_puissance(Lecteur& l, std::int32_t i, Suite suite) {
    const std::int32_t base = l.enfant(i, 0), exposant = l.enfant(i, 1);
    dit_devant(l, base, parmi(l.genre(base), {Genre::puissance, Genre::non}));
    const Noeud& e = l.noeud(exposant);
    const std::string_view texte = e.genre == Genre::nombre ? texte_utile(l.formule, e) : std::string_view();
    if (texte == "2") return l.dit("au carré"_fr);
    if (texte == "3") return l.dit("au cube");
    l.dit("puissance");
    dit_partie(l, exposant, Suite::a_la_fin);
    if (suite == Suite::suivie && e.genre != Genre::parenthese) l.dit("fin exposant");
}

// "A sur B" when it is all that its group holds, otherwise a fraction with its beginning, and its end when
// something follows.
void dit_fraction(Lecteur& l, std::int32_t i, Suite suite) {
    const std::int32_t numerateur = l.enfant(i, 0), denominateur = l.enfant(i, 1);
    if (suite != Suite::seule) l.dit("fraction");
    dit_devant(l, numerateur, l.genre(numerateur) == Genre::et);
    l.dit("sur");
    dit_partie(l, denominateur, Suite::a_la_fin);
    if (suite == Suite::suivie) l.dit("fin fraction");
}

void dit_produit(Lecteur& l, std::int32_t i, Suite suite) {
    const std::int32_t gauche = l.enfant(i, 0), droite = l.enfant(i, 1);
    const bool et = l.genre(i) == Genre::et;
    const Genre g = l.genre(gauche);
    dit_devant(l, gauche, et ? est_produit(g) : g == Genre::et);
    l.dit(et ? "et" : "fois");
    dit_derriere(l, droite, false, suite);
}

// "+" and "-". Bits that are combined are no part of a sum to the ear.
void dit_somme(Lecteur& l, std::int32_t i, Suite suite) {
    const std::int32_t gauche = l.enfant(i, 0), droite = l.enfant(i, 1);
    const Genre g = l.genre(gauche);
    dit_devant(l, gauche, est_ou(g) || g == Genre::et);
    l.dit(l.genre(i) == Genre::plus ? "plus" : "moins");
    dit_derriere(l, droite, l.genre(droite) == Genre::et, suite);
}

// A percentage of all that stands in front of it.
void dit_pourcent(Lecteur& l, std::int32_t i) {
    const std::int32_t gauche = l.enfant(i, 0), droite = l.enfant(i, 1);
    const Genre g = l.genre(gauche), d = l.genre(droite);
    dit_devant(l, gauche, est_somme(g) || est_ou(g) || g == Genre::et);
    l.dit(l.genre(i) == Genre::plus_pourcent ? "plus" : "moins");
    dit_devant(l, droite, est_produit(d) || d == Genre::et);
    l.dit("pour cent");
}

void dit_ou(Lecteur& l, std::int32_t i, Suite suite) {
    const std::int32_t gauche = l.enfant(i, 0), droite = l.enfant(i, 1);
    const Genre g = l.genre(gauche), d = l.genre(droite);
    const bool calcul = est_somme(g) || est_pourcent(g) || est_produit(g) || g == Genre::et;
    dit_devant(l, gauche, calcul || (est_ou(g) && g != l.genre(i)));
    l.dit(l.genre(i) == Genre::ou ? "ou" : "ou exclusif");
    dit_derriere(l, droite, est_produit(d) || d == Genre::et, suite);
}

// A sign in front of a first term. The minus of -2^2 is no part of the number: the power is a block.
void dit_signe(Lecteur& l, std::int32_t i, Suite suite) {
    const std::int32_t terme = l.enfant(i, 0);
    const Genre g = l.genre(i);
    l.dit(g == Genre::moins_unaire ? "moins" : g == Genre::plus_unaire ? "plus" : "complément de"_fr);
    const bool puissance = l.genre(terme) == Genre::puissance && l.genre(l.enfant(terme, 0)) == Genre::nombre;
    if (puissance || l.genre(terme) == Genre::et) return dit_bloc(l, terme);
    dit_partie(l, terme, suite);
}

// "A égale 3"; where more than a letter stands in front of the "=", what took the value is said behind.
void dit_egale(Lecteur& l, std::int32_t i) {
    const Noeud& n = l.noeud(i);
    const std::int32_t cible = l.enfant(i, 0);
    dit_partie(l, cible, Suite::seule);
    l.dit("égale"_fr);
    dit_partie(l, l.enfant(i, 1), Suite::seule);
    if (parmi(l.genre(cible), {Genre::lettre, Genre::matrice})) return;
    if (n.numero == 0) return l.dit("rangé nulle part"_fr);
    l.dit("rangé dans"_fr);
    l.dit(n.numero > 0 ? lettre(n.numero) : "matrice " + lettre(-n.numero));
}

void dit_operande(Lecteur& l, const Noeud& n) {
    if (n.genre == Genre::nombre) return l.dit(mots_nombre(texte_utile(l.formule, n)));
    if (n.genre == Genre::lettre) return l.dit(lettre(n.numero));
    if (n.genre == Genre::matrice) return l.dit("matrice " + lettre(n.numero));
    if (n.genre == Genre::mot) return (l.dit("mot"), l.dit(signes_en_mots(texte_utile(l.formule, n))));
    // A name that has no value, or what stands where a value is due.
    const std::string_view texte = texte_utile(l.formule, n);
    const bool nom = !texte.empty() && est_lettre(texte[0]);
    l.dit(nom ? signes_en_mots(texte) : std::string("valeur absente"));
}

// Two values in a row: the second one counts.
void dit_remplace(Lecteur& l, std::int32_t i, Suite suite) {
    dit_partie(l, l.enfant(i, 0), Suite::suivie);
    l.dit("remplacé par"_fr);
    dit_derriere(l, l.enfant(i, 1), false, suite);
}

void dit_partie(Lecteur& l, std::int32_t i, Suite suite) {
    if (!reste_pile()) echoue(kPile);
    switch (l.genre(i)) {
        case Genre::nombre:
        case Genre::lettre:
        case Genre::matrice:
        case Genre::mot:
        case Genre::refuse: return dit_operande(l, l.noeud(i));
        case Genre::appel: return dit_appel(l, i, suite);
        case Genre::parenthese:
            l.dit("parenthèse"_fr);
            dit_partie(l, l.enfant(i, 0), Suite::seule);
            return l.dit("fin parenthèse"_fr);
        case Genre::remplace: return dit_remplace(l, i, suite);
        case Genre::plus_unaire:
        case Genre::moins_unaire:
        case Genre::complement: return dit_signe(l, i, suite);
        case Genre::non:
            l.dit("non");
            return dit_partie(l, l.enfant(i, 0), suite);
        case Genre::puissance: return dit_puissance(l, i, suite);
        case Genre::divise: return dit_fraction(l, i, suite);
        case Genre::fois:
        case Genre::et: return dit_produit(l, i, suite);
        case Genre::plus:
        case Genre::moins: return dit_somme(l, i, suite);
        case Genre::plus_pourcent:
        case Genre::moins_pourcent: return dit_pourcent(l, i);
        case Genre::ou:
        case Genre::oux: return dit_ou(l, i, suite);
        case Genre::egale: return dit_egale(l, i);
    }
}

}  // namespace

std::string mots_lus(const FormuleRelevee& lue, std::string_view ecrit) {
    Lecteur l{lue.releve, lue.formule, ecrit, {}, {}, {}};
    for (const std::int32_t racine : range_enfants(l)) dit_partie(l, racine, Suite::seule);
    return l.phrase;
}

std::string mots_non_lus(const FormuleRelevee& lue, std::string_view ecrit, const std::vector<std::size_t>& places) {
    std::string phrase;
    const auto dit_non_lu = [&](std::int32_t debut, std::int32_t fin) {   // positions from 1, the last one too
        if (fin < debut) return;
        const std::size_t de = places[static_cast<std::size_t>(debut - 1)], a = places[static_cast<std::size_t>(fin)];
        const std::string mots = signes_en_mots(ecrit.substr(de, a - de));
        if (mots.empty()) return;
        ajoute_mots(phrase, phrase.empty() ? "non lu" : "et non lu");
        ajoute_mots(phrase, mots);
    };
    for (const Noeud& n : lue.releve.noeuds)
        if (parmi(n.genre, {Genre::nombre, Genre::lettre, Genre::matrice})) dit_non_lu(n.utile + 1, n.fin);
    dit_non_lu(std::max(lue.releve.arret, 1), static_cast<std::int32_t>(lue.formule.size()));
    return phrase;
}
