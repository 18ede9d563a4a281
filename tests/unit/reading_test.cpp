// The record of what the reader of a formula read: the tree as it was computed, where reading stopped, what
// was passed over, and where each character stands in what was typed.
#include "engine/reading.hpp"

#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "functions/table.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "support/program.hpp"
#include "unit/helpers.hpp"

namespace {

// The word of a node in the prefix text of a tree.
std::string mot(const FormuleRelevee& lue, const Noeud& n) {
    switch (n.genre) {
        case GenreNoeud::nombre:
        case GenreNoeud::lettre:
        case GenreNoeud::matrice: return std::string(texte_utile(lue.formule, n));
        case GenreNoeud::mot: return "mot";
        case GenreNoeud::refuse: return "refus";
        case GenreNoeud::appel: return std::string(nom_fonction_interne(n.numero));
        case GenreNoeud::parenthese: return "par";
        case GenreNoeud::remplace: return "remplace";
        case GenreNoeud::plus_unaire: return "pos";
        case GenreNoeud::moins_unaire: return "neg";
        case GenreNoeud::complement: return "compl";
        case GenreNoeud::non: return "non";
        case GenreNoeud::puissance: return n.sorte == SorteCalcul::matrices ? "m^" : "^";
        case GenreNoeud::fois: return n.sorte == SorteCalcul::nombres ? "*" : n.sorte == SorteCalcul::matrices ? "m*" : "n*";
        case GenreNoeud::divise: return "/";
        case GenreNoeud::et: return "et";
        case GenreNoeud::plus: return n.sorte == SorteCalcul::nombres ? "+" : "m+";
        case GenreNoeud::moins: return n.sorte == SorteCalcul::nombres ? "-" : "m-";
        case GenreNoeud::ou: return "ou";
        case GenreNoeud::oux: return "oux";
        case GenreNoeud::plus_pourcent: return "+%";
        case GenreNoeud::moins_pourcent: return "-%";
        case GenreNoeud::egale: return "=";
    }
    return "?";
}

// The tree as prefix text: "(+ 1 (* 2 A))".
std::string arbre(const FormuleRelevee& lue) {
    std::vector<std::string> pile;
    for (const Noeud& n : lue.releve.noeuds) {
        std::string texte = mot(lue, n);
        REQUIRE(pile.size() >= static_cast<std::size_t>(n.arite));
        const auto premier = pile.end() - n.arite;
        for (auto enfant = premier; enfant != pile.end(); ++enfant) texte += " " + *enfant;
        pile.erase(premier, pile.end());
        pile.push_back(n.arite == 0 ? texte : "(" + texte + ")");
    }
    std::string tout;
    for (const std::string& racine : pile) tout += tout.empty() ? racine : " ; " + racine;
    return tout;
}

FormuleRelevee lit(const std::string& formule) { return lit_formule(cp(formule)); }

// A is 3, B 4, X 5; MA and MB are two by two.
void pose_contexte() {
    definit_variable(1, 3);
    definit_variable(2, 4);
    definit_variable(24, 5);
    for (int rang = 1; rang <= 2; ++rang) {
        matrices.table[static_cast<std::size_t>(rang)] = TableMatrice(2, 2);
        matrices.table[static_cast<std::size_t>(rang)](1, 1) = rang;
        moteur.matrice_definie[static_cast<std::size_t>(rang)] = true;
    }
}

}  // namespace

TEST_CASE("reading: the tree of a formula is what was computed") {
    struct Rangee {
        const char* formule;
        const char* arbre;
        double valeur;
    };
    const Rangee rangees[] = {
        {"7", "7", 7},
        {"1+2*3", "(+ 1 (* 2 3))", 7},
        {"1-2-3", "(- (- 1 2) 3)", -4},
        {"(1+2)*3", "(* (par (+ 1 2)) 3)", 9},
        {"2^3^2", "(^ (^ 2 3) 2)", 64},
        {"-2^2", "(neg (^ 2 2))", -4},
        {"(-2)^2", "(^ (par (neg 2)) 2)", 4},
        {"+A", "(pos A)", 3},
        {"A=5", "(= A 5)", 5},
        {"A+B=3", "(= (+ A B) 3)", 3},
        {"2X", "(* 2 X)", 10},
        {"3x²", "(* 3 (^ X 2))", 75},
        {"100+20%", "(+% 100 20)", 120},
        {"100-20%+1", "(+ (-% 100 20) 1)", 81},
        {"5 AND 3", "(et 5 3)", 1},
        {"1 OR 2 XOR 4", "(oux (ou 1 2) 4)", 7},
        {"NOT 5", "(non 5)", -6},
        {"NOT 2^3", "(^ (non 2) 3)", -27},
        {"SQRT(A+1)", "(SQRT (+ A 1))", 2},
        {"CNP(5,2)", "(CNP 5 2)", 10},
        {"2PI/2", "(/ (* 2 PI) 2)", 3.1415926535897931},
        {"ABS(-(1+2))", "(ABS (neg (par (+ 1 2))))", 3},
        {"ABS(INT(2.5)+1)/4", "(/ (ABS (+ (INT 2.5) 1)) 4)", 0.75},
        {"$FF+#10", "(+ $FF #10)", 265},
        {"1,5+2", "1", 1},
        {"2(3+4)", "2", 2},
        {"2 3", "(remplace 2 3)", 3},
        {"12 000/2", "(remplace 12 000)", 0},
        {"(2)3", "(remplace (par 2) 3)", 3},
        {"1’500+2", "(+ 1 2)", 3},
        {"1.5.2*2", "(* 1.5 2)", 3},
        {"200*50%", "(* 200 50)", 10000},
        {"2@3", "2", 2},
        {"NOT NOT 1", "(non (remplace mot 1))", -2},
        {"MA+MB", "(m+ MA MB)", 0},
        {"MC=2MA", "(= MC (n* 2 MA))", 2},
        {"MC=MA*MB", "(= MC (m* MA MB))", 0},
        {"MC=MA*MB*MA", "(= MC (m* (n* MA MB) MA))", 0},
        {"MC=MA^2", "(= MC (m^ MA 2))", 0},
        {"DETMAT(MA)", "(DETMAT MA)", 0},
        {"FACT(-1)+2", "(FACT (neg 1))", 0},
    };
    pose_contexte();
    for (const Rangee& r : rangees) {
        CAPTURE(r.formule);
        const FormuleRelevee lue = lit(r.formule);
        CHECK(arbre(lue) == r.arbre);
        CHECK_FALSE(lue.erreur);
        CHECK(lue.valeur == doctest::Approx(r.valeur));
    }
}

TEST_CASE("reading: the place where it stopped") {
    struct Rangee {
        const char* formule;
        int arret;
        int faute;   // 0: none
    };
    const Rangee rangees[] = {{"1+2", 4, 0},       {"1,5+2", 2, 0},   {"2+3)4", 4, 0},  {"12 000/2", 7, 0},
                              {"2(3+4)", 2, 0},    {"200*50%", 7, 0}, {"PI()", 3, 0},   {"3  4", 5, 0},
                              {"A=B=3", 4, 0},     {"2*-3", 3, 3},    {"2*(3+4", 7, 7}, {"1+Q", 4, 3},
                              {"SIN 3", 5, 5},     {"1/0", 4, 4},     {"1E5+2", 7, 3},  {"AB+1", 5, 1},
                              {"FON(2)+1", 6, 6},  {"CNP(2)", 6, 6},  {"2@3", 2, 0},    {"10:4", 5, 0}};
    pose_contexte();
    for (const Rangee& r : rangees) {
        CAPTURE(r.formule);
        const FormuleRelevee lue = lit(r.formule);
        CHECK(lue.releve.arret == r.arret);
        CHECK(lue.releve.faute == r.faute);
        CHECK(lue.erreur == (r.faute != 0));
    }
}

TEST_CASE("reading: what a number's value did not take") {
    struct Rangee {
        const char* formule;
        const char* utile;
        int fin;
    };
    const Rangee rangees[] = {{"1’500", "1", 5},  {"2Â", "2", 2},    {"1.5.2", "1.5", 5}, {"10:4", "10", 4},
                              {"6÷2", "6", 3},    {"$1G", "$1G", 3},  {"#1_0", "#1", 4},   {"12", "12", 2},
                              {"MAX", "MA", 3},   {"3×2", "3", 3},   {"2;5", "2", 3}};
    pose_contexte();
    for (const Rangee& r : rangees) {
        CAPTURE(r.formule);
        const FormuleRelevee lue = lit(r.formule);
        REQUIRE(!lue.releve.noeuds.empty());
        const Noeud& n = lue.releve.noeuds.front();
        CHECK(vers_utf8(texte_utile(lue.formule, n)) == r.utile);
        CHECK(n.fin == r.fin);
        CHECK(lue.releve.a(kTraitPartiel) == (n.utile < n.fin));
    }
}

TEST_CASE("reading: a literal with an exponent, its signs and blanks, is one number") {
    const FormuleRelevee lue = lit_formule("2E +3*4", Preparation::sans_produits);
    CHECK(arbre(lue) == "(* 2E +3 4)");
    CHECK(lue.valeur == 8000);
    const FormuleRelevee avale = lit_formule("2E*3", Preparation::sans_produits);
    CHECK(arbre(avale) == "(remplace 2 3)");
    CHECK(avale.releve.a(kTraitPartiel));
}

TEST_CASE("reading: letters read and given, and the ones that had no value") {
    pose_contexte();
    const FormuleRelevee lue = lit("C=A+2X");
    CHECK(lue.releve.lettres == ((1u << 1) | (1u << 24) | (1u << 3)));
    CHECK(lue.releve.lettres_neuves == 1u << 3);
    CHECK(lue.releve.affectee == 3);
    CHECK(lit("MC=MA").releve.affectee == -3);
    CHECK(lit("2=3").releve.affectee == 0);
}

TEST_CASE("reading: a sum or an argument that a call inside has lost") {
    CHECK(lit("2+SIN(3+COS(1))").releve.a(kTraitSommePerdue));
    CHECK_FALSE(lit("2+SIN(3)").releve.a(kTraitSommePerdue));
    CHECK_FALSE(lit("SIN(3+COS(1))").releve.a(kTraitSommePerdue));
    CHECK_FALSE(lit("2+(SIN(3+COS(1)))").releve.a(kTraitSommePerdue));
    CHECK(lit("CNP(5,CNP(3,1))").releve.a(kTraitArgumentPerdu));
    CHECK_FALSE(lit("CNP(CNP(5,1),3)").releve.a(kTraitArgumentPerdu));
}

TEST_CASE("reading: places in what was typed") {
    const std::string texte = cp("2x²+3y");
    const FormuleRelevee lue = lit_formule(texte);
    REQUIRE(lue.formule == "2*X^2+3*Y");
    CHECK(places_dans_le_texte(texte, lue.formule) == std::vector<std::size_t>{0, 1, 1, 2, 2, 3, 4, 5, 5, 6});
}

TEST_CASE("reading: to look leaves nothing behind") {
    pose_contexte();
    statistiques.table_x.ajoute(7, 2);
    const auto generateur = moteur.generateur;
    const char* formules[] = {"A=9",     "MA=MA+MB", "MC=INVMAT(MA)", "ALEA", "STATX(1,2)", "1/0", "TRISTATX",
                              "FACT(200)", "Q+1",    "MA=MA*0"};
    for (const char* formule : formules) {
        CAPTURE(formule);
        lit(formule);
        CHECK(variable('A') == 3);
        CHECK(matrices.table[1](1, 1) == 1);
        CHECK_FALSE(moteur.matrice_definie[3]);
        CHECK(statistiques.table_x.taille() == 2);
        CHECK((moteur.generateur == generateur));
        CHECK_FALSE(moteur.erreur_formule);
        CHECK(moteur.releve == nullptr);
        CHECK(messages().empty());
        CHECK(boites().empty());
    }
}
