// The repeated evaluation against evaluating the text each time: same bits, same errors, same boxes,
// and the same context afterwards, whatever the formula.
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "engine/identifiers.hpp"
#include "functions/repetition.hpp"
#include "state/context.hpp"
#include "support/program.hpp"
#include "support/repeated.hpp"

namespace {

const std::vector<std::vector<double>> kPoints = {
    {0, 0.5, 0.5, 1, 1.5, 2, 3},
    {-2, -1, -1, 0, 1},
    {1e308, 1e308, -1e308},
    {90, 45, 30, 90},
    {1e-310, 0.1, 0.7}};

void compare(const std::string& formule) {
    for (int unite = 1; unite <= 3; ++unite)
        for (const auto& points : kPoints) {
            const Trace attendu = par_le_texte(formule, unite, points);
            CHECK_MESSAGE(attendu == par_repetition(formule, unite, points), formule);
            for (const Jeu jeu : {Jeu::commun, Jeu::avx2})
                if (jeu_present(jeu)) CHECK_MESSAGE(attendu == par_blocs(formule, unite, points, jeu), formule);
        }
}

// A random formula: mostly good ones, and all that the reader takes in its own way.
std::string au_hasard(std::mt19937& tirage, int profondeur) {
    static const std::vector<std::string> feuilles = {"X", "X", "A", "B", "2", "0.5", "3", "PI", "$1F",
                                                      "#12", "0", "1.5", "C", "2X", "X X", ".5", "1E"};
    static const std::vector<std::string> fonctions = {
        "SIN", "COS", "TAN", "ATAN", "ACOS", "ASIN", "EXP", "LN", "LOG", "SQR", "SQRT", "SQR3",
        "ABS", "SH",  "CH",  "TH",   "ASH",  "ACH",  "ATH", "INT", "FRAC", "FACT", "ANP"};
    static const std::vector<std::string> signes = {"+", "-", "*", "/", "^", "+", "*", "-", " OR ", "%+"};
    const auto un = [&](const auto& liste) { return liste[tirage() % liste.size()]; };
    if (profondeur <= 0 || tirage() % 5 == 0) return un(feuilles);
    switch (tirage() % 8) {
        case 0: return "(" + au_hasard(tirage, profondeur - 1) + ")";
        case 1:
        case 2: return un(fonctions) + "(" + au_hasard(tirage, profondeur - 1) + ")";
        case 3: return "(-" + au_hasard(tirage, profondeur - 1) + ")";
        default:
            return au_hasard(tirage, profondeur - 1) + un(signes) + au_hasard(tirage, profondeur - 1);
    }
}

}  // namespace

TEST_CASE("repeated evaluation leaves what the text leaves, formula by formula") {
    programme_neuf();
    for (const char* formule :
         {"3X+SIN(X)/2", "X^2+3X+1", "Y=X^2", "Y=Y+X", "X=X+1", "2+SIN(3+COS(X))", "SIN(X)+2X",
          "1/X", "LN(X)", "SQRT(X)", "X^(-1)", "X^0.5", "(X-1)^3", "-X^2", "TAN(X)", "M", "X@3",
          "2 X", "X(2)", "X)", "(X", "ALEA*0+X", "-2", "X+", "A*B*X/2", "EXP(X*X)", "X%+1", "NOT X",
          "X^2^3", "2^X", "(2+X)*(3-X)", "SIN(COS(X)+1)+SIN(X)", "5+SIN(1+SIN(X))*2", "X/3/2"})
        compare(formule);
}

TEST_CASE("repeated evaluation leaves what the text leaves, random formulas") {
    programme_neuf();
    std::mt19937 tirage(20261120);
    for (int i = 0; i < 3000; ++i) {
        std::string formule = au_hasard(tirage, 4);
        if (tirage() % 6 == 0) formule = "Y=" + formule;
        compare(formule);
    }
}

TEST_CASE("plain arithmetic is evaluated in blocks, anything else by its text") {
    programme_neuf();
    moteur.variable_definie[24] = true;
    const std::vector<double> x(kTailleBloc, 1.5);
    std::vector<double> y(kTailleBloc);
    for (const auto& [formule, par_blocs] : {std::pair{"3X+SIN(X)/2", true}, {"FACT(3)+X", false}, {"X^2", true}}) {
        moteur.p_formule = formule;
        TestVariable();
        Repetition repetition(24);
        CHECK(repetition.evalue_bloc(x.data(), y.data(), x.size()) == par_blocs);
    }
}
