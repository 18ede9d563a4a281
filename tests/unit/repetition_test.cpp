// The repeated evaluation against evaluating the text each time: same bits, same errors, same boxes,
// and the same context afterwards, whatever the formula.
#include <bit>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "engine/context.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "engine/repetition.hpp"
#include "platform/memory.hpp"
#include "shell/reset.hpp"

namespace {

// What is left behind by a series of evaluations.
struct Trace {
    std::vector<std::uint64_t> valeurs;
    std::vector<bool> erreurs;
    std::vector<std::string> boites;
    std::string formule, symbole, texte_erreur;
    std::vector<std::uint64_t> contexte;
    bool operator==(const Trace&) const = default;
};

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

// Starts a program with A, B and X defined and the formula ready.
void prepare(const std::string& formule, int unite) {
    installe_port_memoire();
    reinitialise_tout();
    modes.unite_angle = static_cast<std::int16_t>(unite);
    for (const int v : {1, 2, 24}) moteur.variable_definie[static_cast<std::size_t>(v)] = true;
    moteur.valeur_variable[1] = 2.5;
    moteur.valeur_variable[2] = -3;
    moteur.p_formule = formule;
    TestVariable();
    moteur.muet_erreur = true;
}

Trace releve(std::vector<std::uint64_t> valeurs, std::vector<bool> erreurs) {
    Trace t;
    t.valeurs = std::move(valeurs);
    t.erreurs = std::move(erreurs);
    t.boites = memoire.boites;
    t.formule = moteur.p_formule;
    t.symbole = moteur.l_symbole;
    t.texte_erreur = moteur.l_texte_erreur;
    for (const double x :
         {moteur.l_valeur, moteur.l_valeur_expression, moteur.l_sauve_expression,
          moteur.l_valeur_facteur, moteur.l_valeur_not, moteur.l_valeur_exposant,
          moteur.l_valeur_terme, moteur.l_valeur_egalite, moteur.l_argument1})
        t.contexte.push_back(bits(x));
    for (std::size_t i = 1; i <= 26; ++i) {
        t.contexte.push_back(bits(moteur.valeur_variable[i]));
        t.contexte.push_back(moteur.variable_definie[i]);
    }
    t.contexte.push_back(static_cast<std::uint64_t>(moteur.p_position));
    t.contexte.push_back(static_cast<std::uint64_t>(moteur.l_var));
    return t;
}

template <class Evalue>
Trace parcourt(const std::vector<double>& points, Evalue&& evalue) {
    std::vector<std::uint64_t> valeurs;
    std::vector<bool> erreurs;
    for (const double x : points) {
        moteur.valeur_variable[24] = x;
        const double valeur = evalue();
        erreurs.push_back(moteur.erreur_formule);
        valeurs.push_back(moteur.erreur_formule ? 0 : bits(valeur));
        if (moteur.erreur_formule) break;   // as the tabulation and the area do
    }
    return releve(valeurs, erreurs);
}

Trace par_le_texte(const std::string& formule, int unite, const std::vector<double>& points) {
    prepare(formule, unite);
    return parcourt(points, [] { return evalue_formule(); });
}

Trace par_repetition(const std::string& formule, int unite, const std::vector<double>& points) {
    prepare(formule, unite);
    Repetition repetition(24);
    Trace t = parcourt(points, [&] { return repetition.evalue(); });
    repetition.termine();
    return releve(t.valeurs, t.erreurs);
}

const std::vector<std::vector<double>> kPoints = {
    {0, 0.5, 0.5, 1, 1.5, 2, 3},
    {-2, -1, -1, 0, 1},
    {1e308, 1e308, -1e308},
    {90, 45, 30, 90},
    {1e-310, 0.1, 0.7}};

void compare(const std::string& formule) {
    for (int unite = 1; unite <= 3; ++unite)
        for (const auto& points : kPoints) {
            const bool pareil =
                par_le_texte(formule, unite, points) == par_repetition(formule, unite, points);
            CHECK_MESSAGE(pareil, formule);
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
    for (const char* formule :
         {"3X+SIN(X)/2", "X^2+3X+1", "Y=X^2", "Y=Y+X", "X=X+1", "2+SIN(3+COS(X))", "SIN(X)+2X",
          "1/X", "LN(X)", "SQRT(X)", "X^(-1)", "X^0.5", "(X-1)^3", "-X^2", "TAN(X)", "M", "X@3",
          "2 X", "X(2)", "X)", "(X", "ALEA*0+X", "-2", "X+", "A*B*X/2", "EXP(X*X)", "X%+1", "NOT X",
          "X^2^3", "2^X", "(2+X)*(3-X)", "SIN(COS(X)+1)+SIN(X)", "5+SIN(1+SIN(X))*2", "X/3/2"})
        compare(formule);
}

TEST_CASE("repeated evaluation leaves what the text leaves, random formulas") {
    std::mt19937 tirage(20261120);
    for (int i = 0; i < 3000; ++i) {
        std::string formule = au_hasard(tirage, 4);
        if (tirage() % 6 == 0) formule = "Y=" + formule;
        compare(formule);
    }
}
