// The table of the built-in functions: one row each, with all that the calculator knows of it. A new
// function is a number at the end of `Fonction`, a row at the end of table.cpp and its words (verification); the
// compiler refuses a number without its row or words and a row that lacks a part. Holds no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "functions/functions.hpp"

// Numbers of the functions: their rows in the table.
enum Fonction : std::int16_t {
    kAucuneFonction,
    kPi, kCos, kSin, kTan, kAcos, kAsin, kAtan, kAbs, kExp, kLn, kLog, kSh, kCh, kTh, kAth, kAsh,
    kAch, kInt, kFact, kFrac, kSqr, kSqrt, kSqr3, kSerieG, kSerieA, kSuiteG, kSuiteA, kStatX,
    kStatXY, kAnp, kCnp, kAir, kInc, kFrancEuro, kEuroFranc, kInvMat, kDetMat, kAlea, kResXY,
    kTriStatX, kFon,
    kApresFonctions   // the end: new functions stand in front of it
};
inline constexpr int kNombreFonctions = kApresFonctions - 1;

// How the text of a call is read.
enum class Lecture : std::uint8_t {
    inconnue,   // of no row
    nom_seul,   // the name, without brackets
    un,         // "(", one argument, ")"
    deux,       // two arguments, with a comma between them; l_argument1 and l_argument2 hold them
    trois,      // three, l_argument3 too
    groupes     // the first argument; the function reads all others and its closing bracket itself
};

struct ArithmetiqueSurveillee;
struct ArithmetiqueSimple;

// What a function gives at x: a formula, written once and compiled for both ways of evaluating, or a
// procedure that leaves its value in a result that was 0.
struct Valeur {
    double (*surveillee)(double x, ArithmetiqueSurveillee& calcul) = nullptr;
    double (*simple)(double x, ArithmetiqueSimple& calcul) = nullptr;
    Fin (*procedure)(double x, double& resultat) = nullptr;
};

// The arguments that a formula refuses, the words of the refusal, and how the call ends then.
struct Domaine {
    bool (*exclut_surveille)(double x, ArithmetiqueSurveillee& calcul) = nullptr;
    bool (*exclut_simple)(double x, ArithmetiqueSimple& calcul) = nullptr;
    std::string_view mots;
    Fin fin = Fin::cloture;
};

// Where a symbol must have a function's name to call it.
enum class Place : std::uint8_t { entier, au_milieu };

struct LigneFonction {
    Fonction numero = kAucuneFonction;
    std::string_view nom;
    Lecture lecture = Lecture::inconnue;
    Valeur valeur{};
    Domaine domaine{};               // everywhere, when nothing is excluded
    Place place = Place::entier;     // au_milieu: any symbol calls it that has the name in it, in capitals
};

// The row of function `rang`, 1 to kNombreFonctions.
const LigneFonction& ligne_fonction(int rang);

// Number of the function that a symbol of at least two characters calls; 0 for none.
int fonction_nommee(std::string_view symbole);

// Name of function `rang`, 1 to kNombreFonctions.
inline std::string_view nom_fonction_interne(int rang) { return ligne_fonction(rang).nom; }
