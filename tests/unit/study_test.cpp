// The study of functions whose zeros and extremes are known, as its lines tell it; of functions that trick a grid;
// and what a study leaves of the sheet's calculation.
#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include <doctest/doctest.h>

#include "base/number.hpp"
#include "helpers.hpp"
#include "state/modes.hpp"
#include "state/variables.hpp"
#include "study/sheet_study.hpp"
#include "study_table.hpp"
#include "support/program.hpp"
#include "support/snapshot.hpp"

namespace {

using Lignes = std::vector<std::string>;

// The lines of the study of a formula in X, in UTF-8.
Lignes etude_de(std::string_view formule, std::string_view bornes, int unite = 2) {
    programme_neuf();
    modes.unite_angle = static_cast<std::int16_t>(unite);
    const std::string texte = *depuis_utf8(formule);
    const auto fonction = fonction_au_curseur(texte, 1);
    REQUIRE_MESSAGE(fonction.has_value(), formule);
    EtudeDeFeuille etude;
    const Refus refus = etudie_fonction(texte, *fonction, bornes, etude);
    REQUIRE_MESSAGE(refus.empty(), vers_utf8(refus));
    return en_utf8(lignes_d_etude(etude));
}

std::string bornes_de(double a, double b) {
    return texte_fixe(a, 6) + "," + texte_fixe(b, 6);
}

// A number that a line tells after `mots`, and how far it may be off: what the line says itself, or `sinon`.
struct Dit {
    double valeur, precision;
};
Dit nombre_apres(const std::string& ligne, std::string_view mots, double sinon) {
    const std::size_t debut = ligne.find(mots);
    REQUIRE_MESSAGE(debut != std::string::npos, ligne);
    std::string reste = ligne.substr(debut + mots.size());
    if (reste.starts_with("environ ")) reste.erase(0, 8);
    const std::string apres = reste.substr(std::min(reste.find(' '), reste.size()));
    const std::string a = " à ";
    const bool sien = apres.starts_with(a) && apres.find(" près") != std::string::npos &&
                      apres.find(" près") < 30;
    return {std::stod(reste), sien ? std::stod(apres.substr(a.size())) : sinon};
}

Lignes commencant(const Lignes& lignes, std::string_view mots) {
    Lignes trouvees;
    for (const std::string& ligne : lignes)
        if (ligne.starts_with(mots)) trouvees.push_back(ligne);
    return trouvees;
}

bool contient(const Lignes& lignes, std::string_view ligne) {
    return std::find(lignes.begin(), lignes.end(), ligne) != lignes.end();
}

// Half a unit is lost to rounding a number that lies between two told ones; the computer's own roundings are far below.
void verifie(const std::string& ligne, std::string_view mots, double connu, double precision) {
    const Dit dit = nombre_apres(ligne, mots, precision);
    CHECK_MESSAGE(std::fabs(dit.valeur - connu) <= dit.precision * 1.0001 + 4e-15 * std::fabs(connu), ligne);
}

void verifie_connue(const FonctionConnue& f) {
    const Lignes lignes = etude_de(f.formule, bornes_de(f.debut, f.fin), f.unite);
    const double px = nombre_apres(lignes[1], "X à ", 0).valeur, py = nombre_apres(lignes[1], "f à ", 0).valeur;
    CHECK(px <= (f.fin - f.debut) * 1e-6);
    const Lignes zeros = commencant(lignes, "Zéro : ");
    CHECK_MESSAGE(zeros.size() == f.zeros.size(), f.formule);
    for (std::size_t i = 0; i < std::min(zeros.size(), f.zeros.size()); ++i)
        verifie(zeros[i], "X = ", f.zeros[i], px);
    Lignes extremes;
    for (const std::string& ligne : lignes)
        if (ligne.starts_with("Minimum : ") || ligne.starts_with("Maximum : ")) extremes.push_back(ligne);
    CHECK_MESSAGE(extremes.size() == f.extremes.size(), f.formule);
    for (std::size_t i = 0; i < std::min(extremes.size(), f.extremes.size()); ++i) {
        const ExtremeConnu& connu = f.extremes[i];
        CHECK_MESSAGE(extremes[i].starts_with(connu.maximum ? "Maximum" : "Minimum"), extremes[i]);
        verifie(extremes[i], "X = ", connu.x, px);
        verifie(extremes[i], "imum : ", connu.y, py);
    }
}

}  // namespace

TEST_CASE("the study finds all zeros and extremes that are known, within what it says, and no other") {
    REQUIRE(kFonctionsConnues.size() >= 100);
    for (const FonctionConnue& f : kFonctionsConnues) {
        CAPTURE(f.formule);
        verifie_connue(f);
    }
}

namespace {

struct Piege {
    std::string_view formule, bornes;
    Lignes attendues;      // lines that the study has
    Lignes sans;           // beginnings of lines that it doesn't have
    int unite = 2;
};

// Functions that trick a grid: poles on a point of it and between two, jumps, flat stretches, holes, cancellation.
const std::vector<Piege> kPieges = {
    {"1/X", "-4,4", {"Domaine : définie partout sauf en X = 0", "Zéros : aucun trouvé",
                     "Limite en X = 0 par la gauche : moins l'infini", "Limite en X = 0 par la droite : plus l'infini"},
     {"Zéro :", "Minimum", "Maximum"}},
    {"1/(X-0.123456789)", "-4,4", {"Zéros : aucun trouvé"}, {"Zéro :", "Minimum", "Maximum"}},
    {"1/X^2", "-4,4", {"Zéros : aucun trouvé", "Variation : croissante de -4 à 0", "Variation : décroissante de 0 à 4"},
     {"Minimum", "Maximum"}},
    {"1/(X-0.123456789)^2", "-4,4", {"Domaine : définie partout sauf en X = environ 0.123457"}, {"Minimum", "Maximum"}},
    {"TAN(X)", "0,180", {"Zéros : 2 trouvés", "Limite en X = 90 par la gauche : plus l'infini"}, {"Minimum", "Maximum"},
     1},
    {"TAN(X)", "1,2", {"Zéros : aucun trouvé"}, {"Zéro :", "Minimum", "Maximum"}},
    {"ABS(X)", "-1,2", {"Zéro : X = 0, sans changer de signe", "Variation : décroissante de -1 à environ 0"}, {}},
    {"X/ABS(X)", "-2,2", {"Zéros : aucun trouvé", "Variation : constante de -2 à 0", "Variation : constante de 0 à 2"},
     {"Zéro :", "Minimum", "Maximum"}},
    {"X/ABS(X)", "-1.1,2.3", {"Zéros : aucun trouvé", "Limite en X = 0 par la gauche : -1"}, {"Zéro :", "Saut"}},
    {"3+0*X", "-4,4", {"Zéros : aucun trouvé", "Variation : constante de -4 à 4"}, {"Minimum", "Maximum"}},
    {"0*X", "-4,4", {"Signe : nulle de -4 à 4"}, {"Minimum", "Maximum", "Zéro :"}},
    {"SIN(X)^2+COS(X)^2", "-4,4", {"Variation : constante de -4 à 4"}, {"Minimum", "Maximum"}},
    {"SIN(X)^2+COS(X)^2-1", "-4,4", {"Signe : nulle de -4 à 4"}, {"Minimum", "Maximum", "Zéro :"}},
    {"X^X", "0,4", {"Zéros : 1 trouvé", "Minimum : environ 0.6922006 en X = environ 0.367879"}, {"Maximum"}},
    {"X^X", "0.1,2", {"Zéros : aucun trouvé"}, {"Maximum", "Saut"}},
    {"SQRT(X)", "-4,4", {"Domaine : définie de 0 compris à 4 compris"}, {"Minimum", "Maximum"}},
    {"LN(X)", "-4,4", {"Domaine : définie de 0 exclu à 4 compris", "Limite en X = 0 par la droite : moins l'infini",
                       "Zéro : X = 1"}, {"Minimum", "Maximum"}},
    {"SQRT(X^2-1)", "-3,3", {"Domaine : définie de -3 compris à -1 compris", "Domaine : définie de 1 compris à 3 compris"},
     {"Minimum", "Maximum"}},
    {"SQRT(-1-X^2)", "-3,3", {"Domaine : définie nulle part", "Zéros : aucun trouvé"}, {"Signe", "Variation"}},
    {"SIN(X)/X", "-1,1", {"Limite en X = 0 par la gauche : 1", "Zéros : aucun trouvé"}, {"Zéro :"}},
    {"(1-COS(X))/X^2", "-4,4", {"Limite en X = 0 par la droite : environ 0.5", "Zéros : aucun trouvé"},
     {"Zéro :", "Minimum", "Maximum"}},
    {"ABS(X-1)+ABS(X+1)", "-4,4", {"Minimum : 2 de -1 à 1"}, {"Maximum"}},
    {"X+ABS(X)", "-4,4", {"Signe : nulle de -4 à 0", "Signe : positive de 0 à 4"}, {"Zéro :"}},
    {"EXP(1/X)", "-2,2", {"Au bord : f(-2) = environ 0.6065307", "Au bord : f(2) = environ 1.648721", "Limite en X = 0 par la gauche : 0", "Limite en X = environ 0.001409 par la droite : plus l'infini"},
     {"Minimum", "Maximum", "Zéro :"}},
    {"X^X", "-1,2", {"Saut en X = 0, de 0 à environ 1"}, {"Maximum"}},
    {"(X^2-1)/(X-1)", "-3,3", {"Domaine : définie partout sauf en X = 1", "Limite en X = 1 par la gauche : 2"},
     {"Minimum", "Maximum"}},
    {"LN(X)/(X-1)", "0.5,2", {"Domaine : définie partout sauf en X = 1"}, {"Minimum", "Maximum"}},
    {"1/(X-1/3)", "0,1", {"Limite en X = environ 0.3333333 par la gauche : moins l'infini",
                          "Limite en X = environ 0.3333333 par la droite : plus l'infini"}, {"Au bord : f(environ"}},
    {"SIN(1000X)", "0,10", {"Attention, la fonction oscille trop vite pour cet intervalle : prenez-en un plus court"},
     {"Signe", "Variation", "Tableau"}},
    {"X^2*SIN(1/X)", "0.001,0.1",
     {"Attention, la fonction oscille trop vite pour cet intervalle : prenez-en un plus court"}, {"Signe"}},
    {"X-X", "-1,1", {"Zéros : f est nulle de -1 à 1"}, {}},
    {"FRAC(X)", "-2,2", {"Saut en X = 1, d'environ 1 à 0", "Saut en X = environ -2, de 0 à environ 1", "Zéros : 5 trouvés"},
     {"Zéros : f est nulle"}},
    {"EXP(X)", "-5,5", {"Précision, sauf mention : X à 0.000001 près, f à 0.0001 près ou à 7 chiffres",
                        "Au bord : f(-5) = environ 0.006737947", "Au bord : f(5) = environ 148.4132"}, {}},
    {"1.6*10^(-19)*X", "1,2", {"Au bord : f(2) = environ 3.2E-19"}, {"Au bord : f(1) = environ 0"}},
    {"SIN(X*PI)", "0,3", {"Au bord : f(3) = environ 0"}, {}},
    {"1/(X*(X-1)*(X-2)*(X-3)*(X-4))", "-1,5",
     {"Domaine : définie partout sauf en X = 0, en X = 1, en X = 2, en X = 3, en X = 4"}, {"Domaine : sauf"}},
    {"TAN(100*X)", "0,10", {"Domaine : définie partout sauf en 318 points", "Domaine : sauf en X = environ 0.015708",
                            "et 119 autres lignes"}, {"Domaine : définie partout sauf en X"}},
    {"(X+1)(X-1)", "-2,2", {"Attention, non lu : (X-1)", "Zéro : X = -1"}, {}},
    {"X-12 000", "-2,2", {"Attention, une partie de la fonction n'est pas lue comme elle est écrite"}, {}},
    {"INT(X)", "0.1,2.9", {"Domaine : définie partout", "Saut en X = 0.995, de 0 à 1"}, {"Minimum", "Maximum"}},
};

}  // namespace

TEST_CASE("the study isn't tricked by poles, jumps, flat stretches, holes and rounding") {
    REQUIRE(kPieges.size() >= 20);
    for (const Piege& piege : kPieges) {
        CAPTURE(piege.formule);
        CAPTURE(piege.bornes);
        const Lignes lignes = etude_de(piege.formule, piege.bornes, piege.unite);
        std::string toutes;
        for (const std::string& ligne : lignes) toutes += ligne + "\n";
        for (const std::string& ligne : piege.attendues) CHECK_MESSAGE(contient(lignes, ligne), (ligne + "\n" + toutes));
        for (const std::string& debut : piege.sans)
            CHECK_MESSAGE(commencant(lignes, debut).empty(), (debut + "\n" + toutes));
    }
}

TEST_CASE("a function is found from every line that belongs to it") {
    const std::string feuille = "A=2\r\nINCX(0,1,3)\r\nA*X ! pente\r\nf(0) = 0\r\nf(1) = 2\r\nf(2) = 4\r\n\r\n"
                                "DEFFON=Y^2\r\nAIRT(-1,1,10) = 0.66\r\nT^2\r\nX+1 = 3\r\n";
    const auto ligne_de = [&](std::int32_t numero) {
        const auto f = fonction_au_curseur(feuille, numero);
        return f ? f->ligne : 0;
    };
    const std::vector<std::int32_t> attendues = {3, 3, 3, 3, 3, 3, 3, 8, 10, 10, 11, 10};
    for (std::size_t i = 0; i < attendues.size(); ++i)
        CHECK_MESSAGE(ligne_de(static_cast<std::int32_t>(i + 1)) == attendues[i], (i + 1));
    CHECK(!fonction_au_curseur("A=3\r\n", 1).has_value());
    CHECK(fonction_au_curseur(feuille, 2)->texte == "A*X");
    CHECK(fonctions_de_feuille(feuille).size() == 2);
}

TEST_CASE("a heading below a heading, or a definition, is no function of it: the pass makes no table of it") {
    for (const std::string sous : {"AIRX(0,4,4)", "INCX(0,1,3)", "DEFFON=X+1", "DEFM X"}) {
        CAPTURE(sous);
        const std::string feuille = "INCX(1,1,3)\r\n" + sous + "\r\nX\r\n";
        for (const FonctionDeFeuille& f : fonctions_de_feuille(feuille)) CHECK(f.texte == "X");
        const auto au_curseur = fonction_au_curseur(feuille, 2);
        CHECK((!au_curseur || au_curseur->entete != "INCX(1,1,3)"));
        CHECK(mots_sans_fonction(feuille, 1) == "fonction de X est inconnue sur la ligne suivante"_fr);
    }
}

TEST_CASE("a function that stands in the sheet twice is met once") {
    programme_neuf();
    const std::string feuille = "INCX(0,1,3)\r\nX^2\r\n\r\nINCX(0,1,3)\r\nX+1\r\n\r\nAIRX(0,3,9)\r\nX+1\r\n";
    EtudeDeFeuille etude;
    REQUIRE(etudie_fonction(feuille, *fonction_au_curseur(feuille, 2), "", etude).empty());
    CHECK(commencant(en_utf8(lignes_d_etude(etude)), "Intersection").size() == 1);
}

TEST_CASE("the lines above give the function its variables, and its heading the interval") {
    programme_neuf();
    const std::string feuille = "A=2\r\nB=A+1\r\nINCX(-B,0.5,13)\r\nX^2-A^2\r\nA=100\r\n";
    EtudeDeFeuille etude;
    CHECK(etudie_fonction(feuille, *fonction_au_curseur(feuille, 4), "", etude).empty());
    const Lignes lignes = en_utf8(lignes_d_etude(etude));
    CHECK(lignes[0] == "Étude de X^2-A^2, X de -3 à 3");
    CHECK(contient(lignes, "Zéro : X = -2"));
    CHECK(contient(lignes, "Zéro : X = 2"));
}

TEST_CASE("two functions of the sheet meet where their values are the same") {
    programme_neuf();
    const std::string feuille = "AIRX(-3,3,10)\r\nX^2\r\nAIRT(0,1,10)\r\nT+2\r\n";
    EtudeDeFeuille etude;
    CHECK(etudie_fonction(feuille, *fonction_au_curseur(feuille, 1), "", etude).empty());
    const Lignes lignes = en_utf8(lignes_d_etude(etude));
    CHECK(contient(lignes, "Intersection avec T+2, ligne 4 : X = -1, y = 1"));
    CHECK(contient(lignes, "Intersection avec T+2, ligne 4 : X = 2, y = 4"));
    const std::string changee = "A=1\r\nAIRX(-3,3,10)\r\nA*X^2\r\nA=2\r\nAIRX(0,1,10)\r\nX+2\r\n";
    CHECK(etudie_fonction(changee, *fonction_au_curseur(changee, 3), "", etude).empty());
    CHECK(contient(en_utf8(lignes_d_etude(etude)),
                   "Intersection avec X+2, ligne 6 : pas cherchée, une variable change entre les deux lignes"));
}

TEST_CASE("what can't be studied is told") {
    programme_neuf();
    EtudeDeFeuille etude;
    const auto refus = [&](std::string_view feuille, std::int32_t ligne, std::string_view bornes) {
        return vers_utf8(etudie_fonction(feuille, *fonction_au_curseur(feuille, ligne), bornes, etude));
    };
    CHECK(refus("A=1/0\r\nAIRX(0,1,2)\r\nX\r\n", 2, "") == "une ligne au-dessus de la fonction est en erreur");
    CHECK(refus("AIRX(0,B,2)\r\nX\r\n", 1, "") == "les bornes ne peuvent pas être calculées");
    for (const std::string_view bornes : {"1", "0,5;3", "1,5,3", "1,2 3", "1,2'000", "", ",", "1,", "1,B", "1,10^400"})
        CHECK_MESSAGE(refus("X^2\r\n", 1, bornes) == "les bornes ne peuvent pas être calculées", bornes);
    CHECK(refus("X^2\r\n", 1, "1,1") == "l'intervalle est vide");
    CHECK(refus("X^2\r\n", 1, "-10^308,10^308") == "l'intervalle est trop grand");
    CHECK(refus("AIRX(-10^308,10^308,10)\r\nX\r\n", 1, "") == "l'intervalle est trop grand");
    // Numbers so large lie too wide apart for a grid between these bounds.
    CHECK(refus("INCX(10^17,10,11)\r\nX\r\n", 1, "") == "l'intervalle est trop petit");
    CHECK(refus("X^2\r\n", 1, "1000000,1000000.01") == "");
    CHECK(refus("X*ALEA\r\n", 1, "0,1") == "une fonction avec ALEA n'est jamais deux fois la même");
    CHECK(refus("X^2\r\n", 1, "0,2*PI") == "");
}

TEST_CASE("a study leaves the sheet's calculation as it was") {
    programme_neuf();
    const std::string feuille = "X=7\r\nB=ALEA\r\nSTATX(5,6)\r\nAIRX(0,2,10)\r\nX^2+B\r\n";
    port.texte.pose_texte(std::string(feuille));
    execute_commande("recalcul");
    oublie_entendu();
    const Instantane avant = prend_instantane();
    EtudeDeFeuille etude;
    CHECK(etudie_fonction(port.texte.texte(), *fonction_au_curseur(port.texte.texte(), 4), "", etude).empty());
    CHECK(differences(avant, prend_instantane()) == std::vector<std::string>{});
    // The random numbers go on where they were.
    const std::string tirage = "B=ALEA*1000000\r\n";
    const auto tire = [&] {
        port.texte.pose_texte(std::string(tirage));
        execute_commande("recalcul");
        return valeur_variable(2);
    };
    programme_neuf();
    const double sans = tire();
    programme_neuf();
    CHECK(etudie_fonction(feuille, *fonction_au_curseur(feuille, 4), "", etude).empty());
    CHECK(tire() == sans);
}
