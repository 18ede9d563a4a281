// The largest that the counts, the memory and the patience allow, and one more.
#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "sheet/matrix_definition.hpp"
#include "state/context.hpp"
#include "support/program.hpp"
#include "unit/helpers.hpp"

namespace {

using Lignes = std::vector<std::string>;

Lignes ensemble(std::initializer_list<Lignes> parties) {
    Lignes toutes;
    for (const Lignes& partie : parties) toutes.insert(toutes.end(), partie.begin(), partie.end());
    return toutes;
}

// A matrix block of order n: `diagonale` on the diagonal, 0 elsewhere.
Lignes bloc_diagonal(int n, const std::string& diagonale) {
    Lignes lignes = {"DEFMA"};
    for (int i = 0; i < n; ++i) {
        std::string rangee;
        for (int j = 0; j < n; ++j) rangee += (j > 0 ? "," : "") + (i == j ? diagonale : "0");
        lignes.push_back(rangee);
    }
    lignes.emplace_back("FIN");
    return lignes;
}

// The sheet calculated by a fresh program, as lines.
Lignes calcule(const Lignes& source) { return lignes_de(calcule_neuf(joint(source))); }

std::string total(std::size_t lignes) { return joint(Lignes(lignes, "2")); }

}  // namespace

TEST_CASE("limits: a block whose rows the sheet can't number is refused whole") {
    const std::string source = joint(ensemble({{"DEFMA"}, Lignes(32768, "1"), {"FIN", "A=5"}}));
    CHECK(calcule_neuf(source) == source);
    CHECK(boites() == Textes{"6 6 sur recalcul"});
    CHECK(messages().empty());
    CHECK_FALSE(moteur.variable_definie[1]);
}

TEST_CASE("limits: the longest block that a sheet holds is stored to its last row") {
    const Lignes rangees(32764, "3");
    const Lignes lues = calcule(ensemble({{"DEFMA"}, rangees, {"FIN", "MB=2*MA"}}));
    CHECK(boites().empty());
    REQUIRE(lues.size() == 32767);
    CHECK(lues.front() == "DEFMA =32764,1");
    CHECK(lues[1] == "3");
    CHECK(lues.back().starts_with("MB=2*MA =6;6;6;"));
    CHECK(lues.back().ends_with(";6;6 =32764,1"));
}

TEST_CASE("limits: the count of rows overflows with one box and keeps what it had") {
    definition_de_matrice.definition_matrice = true;
    for (int i = 1; i <= 32768; ++i) {
        moteur.p_formule = "1";
        RangeDefinitionMatrice();
    }
    CHECK(boites() == Textes{"6 6sur RangeDefinitionMatrice"});
    CHECK(definition_de_matrice.definition_lignes == 32767);
    CHECK(moteur.erreur_formule);
}

TEST_CASE("limits: a tabulation of as many rows as sixteen bits count") {
    const Lignes lues = calcule({"INCX(1,1,32767)", "X*2", "5"});
    CHECK(boites().empty());
    REQUIRE(lues.size() == 32770);
    CHECK(lues[0] == "INCX(1,1,32767)");
    CHECK(lues[1] == "X*2");
    CHECK(lues[2] == "f(1) = 2");
    CHECK(lues[32768] == "f(32767) = 65534");
    CHECK(lues[32769] == "5 = 5");
    // The sheet has more lines now than can be numbered: it isn't calculated again, and stays.
    const std::string texte = memoire.texte;
    execute_commande("recalcul");
    CHECK(boites() == Textes{"6 6 sur recalcul"});
    CHECK(memoire.texte == texte);
}

TEST_CASE("limits: the longest table that can be calculated again") {
    const Lignes lues = calcule({"INCX(0,1,32765)", "X"});
    REQUIRE(lues.size() == 32767);
    const std::string texte = memoire.texte;
    execute_commande("recalcul");
    CHECK(boites().empty());
    CHECK(memoire.texte == texte);
}

TEST_CASE("limits: a column of 32767 lines is calculated but has no room for its total") {
    pose_feuille(total(32767));
    execute_commande("calcul_colonne");
    CHECK(boites() == Textes{"6 6"});
    CHECK(memoire.texte == joint(Lignes(32767, "2 = 2")));
    programme_neuf();
    pose_feuille(total(32766));
    execute_commande("calcul_colonne");
    CHECK(boites().empty());
    CHECK(memoire.texte.ends_with("2 = 2\r\nZ= 65532"));
}

TEST_CASE("limits: a column that can't be numbered has no total and stays as it was") {
    pose_feuille(total(32768));
    execute_commande("calcul_colonne");
    CHECK(boites() == Textes{"6 6 sur recalcul"});
    CHECK(memoire.texte == total(32768));
    CHECK_FALSE(moteur.variable_definie[26]);
}

TEST_CASE("limits: a frequency that no table can hold is told for the size and for the place") {
    const Lignes lues = calcule({"STATX(5,1E300)", "7"});
    CHECK(lues == Lignes{"STATX(5,1E300) = ", "7"});
    CHECK(boites() == Textes{"6 6 sur statx", "6 6 sur statx"});
    CHECK(moteur.valeur_variable['S' - 'A' + 1] == 5 * 1e300);
    CHECK(moteur.valeur_variable['V' - 'A' + 1] == 25 * 1e300);
    CHECK(moteur.valeur_variable['X' - 'A' + 1] == 5);
}

TEST_CASE("limits: a frequency of two thousand million takes neither memory nor time") {
    const Lignes lues = calcule({"STATX(5,2000000000)", "7"});
    CHECK(boites().empty());
    CHECK(lues[0] == "STATX(5,2000000000) = 1");
    CHECK(lues[2] == "N=Effectif total= 2000000000");
    CHECK(lues[5] == "X=moyenne des X= 5");
    CHECK(lues.back() == "7 = 7");
}

TEST_CASE("limits: distances of two thousand million pairs are summed in bounded time") {
    const Lignes lues = calcule({"STATXY(3,5,2000000000)", "A=RESXY(2,-2)"});
    CHECK(boites().empty());
    CHECK(lues.back() == "A=RESXY(2,-2) = 2000000000");
}

TEST_CASE("limits: a sorted list beyond sixteen bits is refused, and the pass goes on to its end") {
    const Lignes lues = calcule({"STATX(5,40000)", "TRISTATX"});
    CHECK(boites() == Textes{"6 6sur TriStatX"});
    CHECK(moteur.erreur_formule);
    CHECK(lues.back() == "TRISTATX = ");
}

TEST_CASE("limits: a function that calls itself gives one box and the sheet goes on") {
    // The scan of the definition runs into it, and each call does.
    const Lignes lues = calcule({"DEFFON=FON(X)+1", "A=FON(1)", "B=2"});
    CHECK(boites() == Textes{"28 28sur fon", "28 28sur fon"});
    CHECK(lues.size() == 3);
    CHECK(lues[1] == "A=FON(1) = 10000");
    CHECK(lues[2] == "B=2 = 2");
}

TEST_CASE("limits: a function that calls itself twice ends as well") {
    // One box for each call that no other call is around: two in each definition, one below it.
    const Lignes lues =
        calcule({"DEFFON=FON(FON(X-1))", "FON(0)", "DEFFON=FON(X)+FON(1)", "FON(0)", "2"});
    CHECK(boites() == Textes(6, "28 28sur fon"));
    REQUIRE(lues.size() == 5);
    CHECK(lues[1] == "FON(0) = 0");
    CHECK(lues[4] == "2 = 2");
}

TEST_CASE("limits: a determinant of order 40 is refused for want of memory") {
    const Lignes bloc = bloc_diagonal(40, "1");
    const Lignes lues = calcule(ensemble({bloc, {"A=DETMAT(MA)", "B=2"}}));
    CHECK(boites() == Textes{"7 7sur DeterminantMatrice"});
    CHECK(moteur.erreur_formule);
    REQUIRE(lues.size() == 44);
    CHECK(lues[0] == "DEFMA =40,40");
    for (std::size_t i = 1; i <= 41; ++i) CHECK(lues[i] == bloc[i]);
    CHECK(lues[42] == "A=DETMAT(MA) = ");
    CHECK(lues[43] == "B=2");
}

TEST_CASE("limits: an inverse of order 40 is refused, and the matrix keeps what it had") {
    const Lignes lues = calcule(ensemble({bloc_diagonal(40, "2"), {"MB=INVMAT(MA)", "B=2"}}));
    CHECK(boites() == Textes{"7 7sur DeterminantMatrice"});
    CHECK(lues.back() == "B=2");
    CHECK(lues[lues.size() - 2].starts_with("MB=INVMAT(MA) = "));
}

TEST_CASE("limits: a determinant of order 16 is exact") {
    const Lignes lues = calcule(ensemble({bloc_diagonal(16, "2"), {"A=DETMAT(MA)"}}));
    CHECK(boites().empty());
    CHECK(lues.back() == "A=DETMAT(MA) = 65536");
}

TEST_CASE("limits: a power without end is given up with one box") {
    // A large one, whose products take less time for their cost: one element grows by one at each.
    Lignes source = bloc_diagonal(60, "1");
    source[1].replace(0, 3, "1,1");
    source.insert(source.end(), {"X=1000000000000000", "MB=MA^X", "C=2"});
    const Lignes lues = calcule(source);
    CHECK(boites() == Textes{"6 6sur PuissanceMatrice"});
    CHECK(moteur.erreur_formule);
    CHECK(lues[63].starts_with("MB=MA^X = "));
    CHECK(lues[64] == "C=2");
}

TEST_CASE("limits: a power that comes back to itself ends at once, however large") {
    const Lignes lues = calcule({"DEFMA", "0,1", "1,0", "FIN", "X=100000000000001", "MB=MA^X"});
    CHECK(boites().empty());
    CHECK(lues.back() == "MB=MA^X =0,1;1,0 =2,2");
}

TEST_CASE("limits: a power of a million is calculated") {
    const Lignes lues = calcule({"DEFMA", "0,1", "1,0", "FIN", "X=1000001", "MB=MA^X"});
    CHECK(boites().empty());
    CHECK(lues.back() == "MB=MA^X =0,1;1,0 =2,2");
}

TEST_CASE("limits: a power that has become infinite ends") {
    const Lignes lues = calcule({"DEFMA", "2,1", "1,2", "FIN", "X=1000000", "MB=MA^X"});
    CHECK(boites() == Textes(4, "6 6sur MultiplicationMatrice"));
}

TEST_CASE("limits: matches without number on one line say no more than a day of speech") {
    std::string ligne, remplacee;
    for (int i = 0; i < 60000; ++i) ligne += "a ", remplacee += "bb ";
    programme_neuf();
    pose_feuille(ligne);
    memoire.reponses = {"a", "bb"};
    execute_commande("mnumodifTexteItem");
    CHECK(memoire.texte == remplacee);
    std::size_t octets = 0;
    for (const std::string& message : memoire.messages) octets += message.size();
    CHECK(octets < std::size_t{8} << 20);
    REQUIRE(memoire.messages.size() > 3);
    CHECK(memoire.messages[0] == "bb" + ligne.substr(1, ligne.size() - 2));
    CHECK(memoire.messages.end()[-2] == remplacee.substr(0, remplacee.size() - 1));
    CHECK(memoire.messages.back() == "60000 remplacement");
}

TEST_CASE("limits: an area without end stops when the user gives up") {
    pose_feuille("AIRX(0,1,1000000000000)\r\nX\r\n5");
    memoire.interrompt = true;
    execute_commande("recalcul");
    CHECK(memoire.bips == 1);
    CHECK(boites() == Textes{"calcul interrompu"});
    CHECK(moteur.erreur_formule);
    CHECK(memoire.texte == "AIRX(0,1,1000000000000)\r\nX\r\n5");
}

TEST_CASE("limits: twenty thousand blocks on one sheet") {
    Lignes lignes;
    for (int i = 0; i < 5000; ++i) {
        lignes.insert(lignes.end(), {"DEFMA", "1,2", "3,4", ""});
        lignes.push_back("MB=MA+MA");
    }
    const Lignes lues = calcule(lignes);
    CHECK(boites().empty());
    REQUIRE(lues.size() == 25000);
    CHECK(lues[24995] == "DEFMA =2,2");
    CHECK(lues[24999] == "MB=MA+MA =2,4;6,8 =2,2");
}

TEST_CASE("limits: a refused letter that closes an open block marks no matrix") {
    for (const char* lettre : {"K", "Z", "\xE9", "5", "*"}) {
        CAPTURE(lettre);
        const std::string cloture = std::string("DEFM") + lettre + " fin";
        const Lignes lues = calcule({"DEFMA", cloture, "B=2"});
        CHECK(boites() == Textes{"9 9sur FinDefinitionMatrice"});
        REQUIRE(lues.size() == 3);
        CHECK(lues[0].starts_with("DEFMA"));
        CHECK(lues[1] == cloture);
        CHECK(lues[2] == "B=2");
    }
}

// The user gives up at the n-th question.
int questions = 0, questions_oui = 0;
void renonce_a(int n) {
    questions = 0;
    questions_oui = n;
    port.systeme.interrompu = [] { return ++questions >= questions_oui; };
}

// A matrix of that order without a zero in its determinant.
std::string matrice(int ordre) {
    std::string texte = "DEFMA";
    for (int i = 1; i <= ordre; ++i)
        for (int j = 1; j <= ordre; ++j)
            (texte += j == 1 ? "\r\n" : ",") += std::to_string((i * 7 + j * j * 3 + i * j) % 11 - 5);
    return texte + "\r\nFIN\r\n";
}

TEST_CASE("limits: the inverse of a large matrix asks whether to go on, and stops") {
    pose_feuille(matrice(20) + "MB=INVMAT(MA)\r\nA=1");
    renonce_a(3);
    execute_commande("recalcul");
    CHECK(questions == 3);
    CHECK(boites() == Textes{"calcul interrompu"});
    CHECK(moteur.erreur_formule);
    CHECK(memoire.texte.ends_with("\r\nA=1"));
}

TEST_CASE("limits: a table of a function that calls itself stops at once, with one box and no word more") {
    pose_feuille("DEFFON=X+FON(X)\r\nINCX(1,1,30000)\r\nFON(X)");
    renonce_a(2);
    execute_commande("recalcul");
    CHECK(questions == 2);
    CHECK(std::count(memoire.boites.begin(), memoire.boites.end(), "calcul interrompu") == 1);
    for (const std::string& m : memoire.messages) CHECK(m.find("fonction non d") == std::string::npos);
}

TEST_CASE("limits: an area of such a function is given up between two trapezoids, also at its ends") {
    for (const int question : {1, 2, 40}) {
        CAPTURE(question);
        pose_feuille("DEFFON=X+FON(X)\r\nAIRX(0,1,1000000)\r\nFON(X)\r\n2+2");
        renonce_a(question);
        execute_commande("recalcul");
        CHECK(questions == question);
        CHECK(memoire.boites.back() == "calcul interrompu");
        CHECK(memoire.texte.ends_with("\r\n2+2"));
    }
}

TEST_CASE("limits: products and powers of large matrices can be given up") {
    for (const std::string formule : {"MB=MA*MA", "MB=MA^50"}) {
        CAPTURE(formule);
        pose_feuille(matrice(200) + formule);
        memoire.boites.clear();
        renonce_a(2);
        execute_commande("recalcul");
        CHECK(questions == 2);
        CHECK(boites() == Textes{"calcul interrompu"});
    }
}

TEST_CASE("limits: the next pass after one that was given up is calculated") {
    pose_feuille(matrice(20) + "MB=INVMAT(MA)\r\nA=1");
    renonce_a(1);
    execute_commande("recalcul");
    renonce_a(1000000);
    memoire.texte = "A=1\r\nA+1";
    execute_commande("recalcul");
    CHECK(memoire.texte == "A=1 = 1\r\nA+1 = 2");
}
