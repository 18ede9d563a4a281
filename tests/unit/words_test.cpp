// The words of formulas, turned back into what was read: a reader of the words that knows nothing of the
// program but the words of its functions. What comes back as it was can't have the words of anything else.
#include "verification/words.hpp"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "engine/reading.hpp"
#include "functions/table.hpp"
#include "state/context.hpp"
#include "state/matrices.hpp"
#include "support/program.hpp"
#include "verification/function_words.hpp"

namespace {

// What was read, as prefix text: "(+ 1 (* 2 A))".
std::string mot(const FormuleRelevee& lue, const Noeud& n) {
    constexpr std::string_view kMots[] = {"nombre", "lettre", "matrice", "mot", "refuse", "appel", "par", "remplace", "pos",
                                          "neg", "compl", "non", "^", "*", "/", "et", "+", "-", "ou", "oux", "+%", "-%", "="};
    if (n.genre == GenreNoeud::nombre) {
        const std::string texte(texte_utile(lue.formule, n));
        return texte.starts_with('#') ? texte.substr(1) : texte;
    }
    if (n.genre == GenreNoeud::lettre || n.genre == GenreNoeud::matrice)
        return std::string(texte_utile(lue.formule, n));
    if (n.genre == GenreNoeud::appel) return std::string(nom_fonction_interne(n.numero));
    return std::string(kMots[static_cast<std::size_t>(n.genre)]);
}

std::string compose(std::string tete, const std::vector<std::string>& enfants) {
    if (enfants.empty()) return tete;
    for (const std::string& enfant : enfants) tete += " " + enfant;
    return "(" + tete + ")";
}

std::string arbre(const FormuleRelevee& lue) {
    std::vector<std::string> pile;
    for (const Noeud& n : lue.releve.noeuds) {
        const std::vector<std::string> enfants(pile.end() - n.arite, pile.end());
        pile.resize(pile.size() - enfants.size());
        pile.push_back(compose(mot(lue, n), enfants));
    }
    return pile.size() == 1 ? pile[0] : compose("racines", pile);
}

// The reader of the words.
struct Auditeur {
    std::vector<std::string> mots;
    std::size_t ici = 0;

    // The next words are these; then they are read.
    bool prend(std::string_view attendus) {
        std::size_t place = ici;
        for (; !attendus.empty(); ++place) {
            const std::size_t longueur = std::min(attendus.find(' '), attendus.size());
            if (place >= mots.size() || mots[place] != attendus.substr(0, longueur)) return false;
            attendus.remove_prefix(std::min(longueur + 1, attendus.size()));
        }
        ici = place;
        return true;
    }
    void attend(std::string_view attendus) {
        if (!prend(attendus)) throw std::runtime_error("no " + std::string(attendus));
    }
    std::string un() {
        if (ici == mots.size()) throw std::runtime_error("the end");
        return mots[ici++];
    }

    std::string egalite() {
        std::string gauche = groupe();
        if (!prend("égale")) return gauche;
        gauche = compose("=", {gauche, groupe()});
        if (prend("rangé dans")) prend("matrice"), prend("i grec") || !un().empty();
        prend("rangé nulle part");
        return gauche;
    }

    // What an end closes. A fraction that is all of it has no beginning and no end.
    std::string groupe() {
        std::string signe = prend("moins") ? "neg" : prend("plus") ? "pos" : "";
        std::string somme = terme();
        if (prend("sur")) somme = compose("/", {somme, puissance()});
        if (!signe.empty()) somme = compose(signe, {somme});
        while (true) {
            const std::string operateur = prend("plus") ? "+" : prend("moins") ? "-"
                                          : prend("ou exclusif") ? "oux" : prend("ou") ? "ou" : "";
            if (operateur.empty()) return somme;
            const std::string droite = terme();
            somme = compose(prend("pour cent") ? operateur + "%" : operateur, {somme, droite});
        }
    }

    std::string terme() {
        std::string produit = puissance();
        while (true) {
            const std::string operateur = prend("fois") ? "*" : prend("et") ? "et" : "";
            if (operateur.empty()) return produit;
            produit = compose(operateur, {produit, puissance()});
        }
    }

    std::string puissance() {
        const std::string base = facteur();
        if (prend("au carré")) return compose("^", {base, "2"});
        if (prend("au cube")) return compose("^", {base, "3"});
        if (!prend("puissance")) return base;
        const std::string exposant = facteur();
        prend("fin exposant");
        return compose("^", {base, exposant});
    }

    std::string facteur() {
        std::string valeur = prend("non") ? compose("non", {valeur_seule()}) : valeur_seule();
        while (prend("remplacé par")) {
            const bool dans_non = valeur.starts_with("(non ");
            std::string dedans = dans_non ? valeur.substr(5, valeur.size() - 6) : valeur;
            dedans = compose("remplace", {dedans, valeur_seule()});
            valeur = dans_non ? compose("non", {dedans}) : dedans;
        }
        return valeur;
    }

    std::string entoure(std::string_view fin) {
        std::string dedans = groupe();
        attend(fin);
        return dedans;
    }

    std::string fraction() {
        const std::string numerateur = terme();
        attend("sur");
        const std::string denominateur = puissance();
        prend("fin fraction");
        return compose("/", {numerateur, denominateur});
    }

    std::string valeur_seule() {
        if (prend("parenthèse")) return compose("par", {entoure("fin parenthèse")});
        if (prend("bloc")) return entoure("fin bloc");
        if (prend("fraction")) return fraction();
        if (prend("mot")) return prend("ou exclusif") ? "mot" : (un(), "mot");
        if (prend("matrice")) return "M" + un();
        if (prend("hexadécimal")) return hexadecimal();
        if (const int rang = fonction(); rang != 0) return appel(rang);
        if (prend("i grec")) return "Y";
        const std::string mot = un();
        const bool lettre = mot.size() == 1 && mot[0] >= 'A' && mot[0] <= 'Z';
        if (lettre || (mot[0] >= '0' && mot[0] <= '9')) return mot;
        throw std::runtime_error("no value: " + mot);
    }

    std::string hexadecimal() {
        std::string chiffres = "$";
        while (ici < mots.size() && mots[ici].size() == 1 && std::string("0123456789ABCDEF").find(mots[ici]) != std::string::npos)
            chiffres += mots[ici++];
        return chiffres;
    }

    // The words that each function begins with, from 1.
    static const std::vector<std::string>& debuts() {
        static const std::vector<std::string> tous = [] {
            std::vector<std::string> liste(1);
            for (int rang = 1; rang <= kNombreFonctions; ++rang) liste.push_back(vers_utf8(mots_fonction(rang).debut));
            return liste;
        }();
        return tous;
    }

    // The function whose words begin here, the longest ones; they are read.
    int fonction() {
        int trouvee = 0;
        std::size_t loin = ici;
        const std::size_t depart = ici;
        for (int rang = 1; rang <= kNombreFonctions; ++rang) {
            ici = depart;
            if (prend(debuts()[static_cast<std::size_t>(rang)]) && ici > loin) {
                loin = ici;
                trouvee = rang;
            }
        }
        ici = loin;
        return trouvee;
    }

    std::string appel(int rang) {
        const MotsFonction& m = mots_fonction(rang);
        const std::string nom(nom_fonction_interne(rang)), fin = vers_utf8(m.fin);
        const Lecture lecture = ligne_fonction(rang).lecture;
        if (lecture == Lecture::nom_seul) return nom;
        if (lecture == Lecture::un) return compose(nom, {argument(fin)});
        std::vector<std::string> valeurs{groupe()};
        for (const std::string_view entre : m.entre)
            if (!entre.empty() && prend(vers_utf8(entre))) valeurs.push_back(groupe());
        attend(fin);
        return compose(nom, valeurs);
    }

    std::string argument(const std::string& fin) {
        if (prend("parenthèse")) return entoure(fin);
        const std::string signe = prend("moins") ? "neg" : prend("plus") ? "pos" : "";
        const std::string valeur = valeur_seule();
        prend(fin);
        return signe.empty() ? valeur : compose(signe, {valeur});
    }
};

// The words of what was read, back as prefix text.
std::string entendu(const std::string& mots) {
    Auditeur auditeur;
    std::istringstream flux(mots);
    for (std::string mot; flux >> mot;) auditeur.mots.push_back(mot);
    std::string tout = auditeur.egalite();
    if (auditeur.ici < auditeur.mots.size()) tout += " and then " + auditeur.mots[auditeur.ici];
    return tout;
}

// Random formulas, with everything that a formula can hold.
struct Tireur {
    std::mt19937 hasard{20260131};

    int tire(int n) { return static_cast<int>(hasard() % static_cast<unsigned>(n)); }
    template <std::size_t N>
    std::string un(const char* const (&choix)[N]) { return choix[tire(static_cast<int>(N))]; }

    std::string somme(int profondeur) {
        std::string texte = tire(6) == 0 ? un({"-", "+", "-"}) : "";
        texte += terme(profondeur);
        for (int n = tire(3); n > 0; --n) {
            const std::string operateur = un({"+", "-", "+", "-", " OR ", " XOR "});
            texte += operateur + terme(profondeur);
            if (operateur.size() == 1 && tire(5) == 0) texte += "%";
        }
        return texte;
    }
    std::string terme(int profondeur) {
        std::string texte = puissance(profondeur);
        for (int n = tire(3); n > 0; --n) texte += un({"*", "/", "*", "/", " AND "}) + puissance(profondeur);
        return texte;
    }
    std::string puissance(int profondeur) {
        std::string texte = non(profondeur);
        for (int n = tire(6); n > 3; --n) texte += "^" + non(profondeur);
        return texte;
    }
    std::string non(int profondeur) { return (tire(12) == 0 ? "NOT " : "") + valeur(profondeur); }
    std::string valeur(int profondeur) {
        if (profondeur == 0 || tire(3) == 0)
            return un({"1", "2", "3", "2", "12.5", "A", "B", "X", "Y", "PI", "ALEA", "$1F", "#7", "E", "7", "2X", "1 4", "NOT OR"});
        if (tire(2) == 0) return "(" + somme(profondeur - 1) + ")";
        const int rang = 1 + tire(kNombreFonctions);
        const LigneFonction& f = ligne_fonction(rang);
        if (f.place == Place::au_milieu || f.lecture == Lecture::nom_seul || f.lecture == Lecture::groupes) return "3";
        std::string texte = std::string(f.nom) + "(" + somme(profondeur - 1);
        for (int n = f.lecture == Lecture::un ? 0 : f.lecture == Lecture::deux ? 1 : 2; n > 0; --n)
            texte += "," + somme(profondeur - 1);
        return texte + ")";
    }
};

void pose_contexte() {
    programme_neuf();
    for (std::size_t rang = 1; rang <= 26; ++rang) definit_variable(rang, 1 + static_cast<double>(rang) / 8);
    for (int rang = 1; rang <= 3; ++rang) {
        matrices.table[static_cast<std::size_t>(rang)] = TableMatrice(2, 2);
        matrices.table[static_cast<std::size_t>(rang)](1, 1) = matrices.table[static_cast<std::size_t>(rang)](2, 2) = rang;
        moteur.matrice_definie[static_cast<std::size_t>(rang)] = true;
    }
}

}  // namespace

TEST_CASE("words: turned back they are what was read") {
    pose_contexte();
    Tireur tireur;
    int lues = 0, refusees = 0;
    for (int tour = 0; lues < 4000; ++tour) {
        std::string formule = tireur.somme(1 + tireur.tire(3));
        if (tour % 5 == 0) formule = tireur.un({"A", "Q", "A+1", "2"}) + "=" + formule;
        const FormuleRelevee lue = lit_formule(formule);
        if (lue.erreur) {
            ++refusees;
            continue;
        }
        ++lues;
        const std::string mots = vers_utf8(mots_lus(lue, formule));
        CAPTURE(formule);
        CAPTURE(mots);
        std::string retour;
        CHECK_NOTHROW(retour = entendu(mots));
        CHECK(retour == arbre(lue));
    }
    CHECK(refusees < 10 * lues);   // most of what the generator makes up can be calculated
}

TEST_CASE("words: whatever was typed has words, and what was not read is in what was typed") {
    pose_contexte();
    Tireur tireur;
    const std::string signes = cp("+-*/^(),;=%.:@$# 1234ABXMEÉ²×’!");
    int fautives = 0;
    for (int tour = 0; tour < 4000; ++tour) {
        std::string formule = tireur.somme(2);
        for (int n = 1 + tireur.tire(3); n > 0; --n)
            formule.insert(static_cast<std::size_t>(tireur.tire(static_cast<int>(formule.size()) + 1)), 1,
                           signes[static_cast<std::size_t>(tireur.tire(static_cast<int>(signes.size())))]);
        if (tour % 7 == 0) formule.resize(formule.size() / 2);
        const FormuleRelevee lue = lit_formule(formule);
        fautives += lue.erreur ? 1 : 0;
        CAPTURE(vers_utf8(formule));
        std::string mots;
        CHECK_NOTHROW(mots = mots_lus(lue, formule));
        CHECK_NOTHROW(mots += mots_non_lus(lue, formule, places_dans_le_texte(formule, lue.formule)));
        CHECK((mots.empty() || !formule.empty()));
    }
    CHECK(fautives > 100);
}

TEST_CASE("words: of matrices, turned back") {
    pose_contexte();
    for (const char* formule : {"MD=MA+MB-MC", "MD=2*MA", "MD=MA*MB", "MD=MA^3", "MD=INVMAT(MA)", "DETMAT(MA)+1",
                                "DETMAT(MA)^2", "MD=MA^2+MB", "MD=-MA"}) {
        const FormuleRelevee lue = lit_formule(formule);
        CAPTURE(formule);
        CHECK(entendu(vers_utf8(mots_lus(lue, formule))) == arbre(lue));
    }
}

TEST_CASE("words: the reader of the test tells words apart that are not the same") {
    CHECK(entendu("1 plus 2 fois 3") == "(+ 1 (* 2 3))");
    CHECK(entendu("bloc 1 plus 2 fin bloc fois 3") == "(* (+ 1 2) 3)");
    CHECK(entendu("A sur B") == "(/ A B)");
    CHECK_THROWS(entendu("sinus de parenthèse A plus B"));
    CHECK(entendu("A B") == "A and then B");
}

TEST_CASE("words: what was not read is said sign by sign, in its place and its case") {
    pose_contexte();
    const auto non_lu = [](const char* utf8) {
        const std::string texte = cp(utf8);
        const FormuleRelevee lue = lit_formule(texte);
        return vers_utf8(mots_non_lus(lue, texte, places_dans_le_texte(texte, lue.formule)));
    };
    CHECK(non_lu("1+2") == "");
    CHECK(non_lu("1,5+2") == "non lu virgule 5 plus 2");
    CHECK(non_lu("2x²,prix") == "non lu virgule prix");
    CHECK(non_lu("1’500+2") == "non lu apostrophe 500");
    CHECK(non_lu("1’5+2’6,7") == "non lu apostrophe 5 et non lu apostrophe 6 et non lu virgule 7");
    CHECK(non_lu("2+3 ") == "");
    CHECK(non_lu("MAX") == "non lu X");
}
