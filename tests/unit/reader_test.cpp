// The symbol reader: the raw cut, the names of functions, literals and their exponents, binary
// digits, and the report of an error.
#include "engine/reader.hpp"

#include <doctest/doctest.h>

#include <cmath>
#include <iterator>
#include <string>
#include <vector>

#include "functions/table.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "support/program.hpp"
#include "unit/helpers.hpp"

namespace {

// Puts a formula (capitals, UTF-8) in front of the reader, with its end mark.
void pose_formule(const std::string& formule) {
    moteur.l_separateurs = " +-*/^(),@=%";
    moteur.p_formule = cp(formule) + "@";
    commence_lecture();
    moteur.erreur_formule = false;
    moteur.l_texte_erreur.clear();
}

// Symbols up to the end mark, by the raw cut.
Textes coupe(const std::string& formule) {
    pose_formule(formule);
    Textes symboles;
    do {
        p_lis_symbole();
        symboles.push_back(vers_utf8(moteur.l_symbole));
        REQUIRE(symboles.size() < 50);
    } while (moteur.l_symbole != "@");
    return symboles;
}

}  // namespace

TEST_CASE("reader: raw cut of a formula") {
    struct Rangee {
        const char* formule;
        Textes symboles;
    };
    const Rangee rangees[] = {{"A=2*(B+1)", {"A", "=", "2", "*", "(", "B", "+", "1", ")", "@"}},
                              {"", {"@"}},
                              {"   ", {"@"}},
                              {"  12  AB ", {"12", "AB", "@"}},
                              {"1,5", {"1", ",", "5", "@"}},
                              {"3;4", {"3;4", "@"}},
                              {"1E+5", {"1E", "+", "5", "@"}},
                              {"100-20%", {"100", "-", "20", "%", "@"}},
                              {"A^-B/C", {"A", "^", "-", "B", "/", "C", "@"}},
                              {"!5", {"!5", "@"}},
                              {"$FF#1.2œ3", {"$FF#1.2œ3", "@"}},
                              {"É.É", {"É.É", "@"}},
                              {"((", {"(", "(", "@"}},
                              {"==", {"=", "=", "@"}},
                              {"SIN (X)", {"SIN", "(", "X", ")", "@"}}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.formule);
        CHECK(coupe(r.formule) == r.symboles);
    }
}

TEST_CASE("reader: past the end the symbol is empty and the cursor still moves") {
    pose_formule("A");
    p_lis_symbole();
    p_lis_symbole();
    CHECK(moteur.p_position == 3);
    p_lis_symbole();
    CHECK(moteur.l_symbole.empty());
    CHECK(moteur.p_position == 4);
    p_lis_symbole();
    CHECK(moteur.p_position == 5);
}

TEST_CASE("reader: a formula that the cursor can't span shows one box") {
    pose_formule(std::string(40000, '7'));
    for (int i = 0; i < 5; ++i) p_lis_symbole();
    CHECK(boites() == Textes{"6 6 sur p_lis_symbole"});
    CHECK(moteur.erreur_formule);
}

TEST_CASE("reader: the names and numbers that sheets and the reader's files rely on stay") {
    const char* noms[] = {"PI",     "COS",    "SIN",    "TAN",       "ACOS",      "ASIN",
                          "ATAN",   "ABS",    "EXP",    "LN",        "LOG",       "SH",
                          "CH",     "TH",     "ATH",    "ASH",       "ACH",       "INT",
                          "FACT",   "FRAC",   "SQR",    "SQRT",      "SQR3",      "SERIEG",
                          "SERIEA", "SUITEG", "SUITEA", "STATX",     "STATXY",    "ANP",
                          "CNP",    "air",    "inc",    "FRANCEURO", "EUROFRANC", "INVMAT",
                          "DETMAT", "ALEA",   "RESXY",  "TRISTATX",  "FON"};
    REQUIRE(kNombreFonctions >= static_cast<int>(std::size(noms)));
    for (int rang = 1; rang <= static_cast<int>(std::size(noms)); ++rang) {
        CAPTURE(rang);
        CHECK(nom_fonction_interne(rang) == noms[rang - 1]);
    }
}

TEST_CASE("reader: the name of each function calls it") {
    for (int rang = 1; rang <= kNombreFonctions; ++rang) {
        CAPTURE(rang);
        moteur.l_symbole = nom_fonction_interne(rang);
        moteur.type_f = 0;
        CHECK(test_fonction());
        CHECK(moteur.type_f == rang);
    }
}

TEST_CASE("reader: words that hold AIR or INC are functions, no other word is") {
    struct Rangee {
        const char* symbole;
        int type;  // 0: no function
    };
    const Rangee rangees[] = {{"AIRE", 32}, {"MAIRIE", 32}, {"XINC", 33}, {"INC", 33},
                              {"AIR", 32},  {"INCAIR", 32}, {"AIRX", 32}, {"A", 0},
                              {"P", 0},     {"COSX", 0},    {"SI", 0},    {"STAT", 0},
                              {"Air", 0},   {"cos", 0},     {"", 0},      {"(", 0},
                              {"PIX", 0},   {"SQRT3", 0},   {"OR", 0}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.symbole);
        moteur.l_symbole = r.symbole;
        moteur.type_f = 7;
        CHECK(test_fonction() == (r.type != 0));
        CHECK(moteur.type_f == (r.type != 0 ? r.type : 7));
    }
}

TEST_CASE("reader: values of literals, with the exponents that they swallow") {
    struct Rangee {
        const char* formule;
        const char* symbole;
        double valeur;
        const char* suivant;
    };
    const Rangee rangees[] = {
        {"12", "12", 12, "@"},      {"1.5.3", "1.5.3", 1.5, "@"}, {"12ABC", "12ABC", 12, "@"},
        {"1E5", "1E5", 1e5, "@"},   {"2E+3", "2E+3", 2000, "@"},  {"2E-3", "2E-3", 0.002, "@"},
        {"2E*3", "2E*", 2, "3"},    {"2E", "2E@", 2, ""},         {"2E +3", "2E+3", 2000, "@"},
        {"2E 3", "2E3", 2000, "@"}, {"2E++3", "2E++", 2, "3"},    {"1D+3", "1D", 1, "+"},
        {"1D3", "1D3", 1000, "@"},  {"3;4", "3;4", 3, "@"},       {"1,5", "1", 1, ","},
        {"$FF", "$FF", 255, "@"},   {"$1E+1", "$1E", 30, "+"},    {"$", "$", 0, "@"},
        {"$1G", "$1G", 16, "@"},    {"$0010", "$0010", 16, "@"},  {"#12", "#12", 12, "@"},
        {"#", "#", 0, "@"},         {"#1E2", "#1E2", 100, "@"},   {"#FF", "#FF", 0, "@"},
        {"0.1", "0.1", 0.1, "@"},   {"007", "007", 7, "@"}};
    for (const int mode : {1, 2})
        for (const Rangee& r : rangees) {
            CAPTURE(r.formule);
            modes.mode_nombre = static_cast<std::int16_t>(mode);
            pose_formule(r.formule);
            lis_symbole();
            CHECK(moteur.l_symbole == r.symbole);
            CHECK(moteur.l_valeur == r.valeur);
            CHECK_FALSE(moteur.erreur_formule);
            p_lis_symbole();
            CHECK(moteur.l_symbole == r.suivant);
        }
}

TEST_CASE("reader: what is no literal is left without a value") {
    for (const char* formule : {".5", ";3", "!5", "É1", "+", "("}) {
        CAPTURE(formule);
        pose_formule(formule);
        moteur.l_valeur = 99;
        lis_symbole();
        CHECK(moteur.l_valeur == 99);
        CHECK_FALSE(moteur.erreur_formule);
    }
}

TEST_CASE("reader: the reserved prefix is refused in every number mode") {
    for (const int mode : {1, 2}) {
        modes.mode_nombre = static_cast<std::int16_t>(mode);
        pose_formule("œ12");
        lis_symbole();
        CHECK(moteur.erreur_formule);
        CHECK(moteur.l_texte_erreur == "constante erronee");
        CHECK(moteur.l_symbole == "0");
        CHECK(moteur.l_valeur == 0);
    }
}

TEST_CASE("reader: a literal too large is told by its number with a blank, and no box") {
    for (const char* formule : {"1E999", "#1E999"}) {
        pose_formule(formule);
        lis_symbole();
        CHECK(moteur.erreur_formule);
        CHECK(moteur.l_texte_erreur == " 6");
        CHECK(moteur.l_symbole == "0");
    }
    pose_formule("$" + std::string(300, 'F'));
    lis_symbole();
    CHECK(moteur.l_texte_erreur == " 6");
    CHECK(boites().empty());
    CHECK(messages() == Textes{"6", " 6  ", "6"});
}

TEST_CASE("reader: binary digits") {
    struct Rangee {
        const char* texte;
        bool bon;
        double valeur;
    };
    const Rangee rangees[] = {
        {"", true, 0},     {"0", true, 0},
        {"1", true, 1},    {"101", true, 5},
        {"0011", true, 3}, {"12", false, 1},
        {"2", false, 0},   {"10 1", false, 2},
        {"-1", false, 0},  {"1111111111111111111111111111111111", true, 17179869183.0}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.texte);
        double valeur = 77;
        CHECK(chnenbin(r.texte, valeur) == r.bon);
        CHECK(valeur == r.valeur);
    }
    double valeur = 0;
    CHECK(chnenbin(std::string(1023, '1'), valeur));
    CHECK(numero_defaillance([&] { chnenbin(std::string(1100, '1'), valeur); }) == 6);
}

TEST_CASE("reader: a report marks the formula, says the words and makes 0 the symbol") {
    pose_formule("A+B");
    moteur.l_symbole = "xyz";
    moteur.l_valeur = moteur.l_valeur_terme = 4;
    moteur.l_var = 3;
    moteur.l_matrice = 'B';
    affiche_erreur_formule("attend " + std::string(moteur.l_symbole));
    CHECK(moteur.erreur_formule);
    CHECK(moteur.l_symbole == "0");
    CHECK(moteur.l_valeur == 0);
    CHECK(moteur.l_valeur_terme == 4);
    CHECK(moteur.l_var == 0);
    CHECK(moteur.l_matrice == ' ');
    CHECK(moteur.l_texte_erreur == "attend xyz");
    CHECK(moteur.p_position == 1);
    CHECK(messages() == Textes{"attend xyz"});
}

TEST_CASE("reader: a report is without words while a function is probed, and nothing in a scan") {
    moteur.muet_erreur = true;
    affiche_erreur_formule("division par 0");
    CHECK(moteur.erreur_formule);
    CHECK(moteur.l_symbole == "0");
    CHECK(moteur.l_texte_erreur.empty());
    moteur.muet_erreur = moteur.erreur_formule = false;
    moteur.definition_fonction_active = true;
    moteur.l_symbole = "B";
    affiche_erreur_formule("division par 0");
    CHECK_FALSE(moteur.erreur_formule);
    CHECK(moteur.l_symbole == "B");
    CHECK(messages().empty());
}
