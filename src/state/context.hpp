// The calculation context: everything that the expression engine reads and writes. One instance,
// `moteur`. Evaluation, sheet pass, matrices and statistics change it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "state/modes.hpp"
#include "state/symbol.hpp"
#include "state/variables.hpp"

// The registers of a formula that is being read: what a call of the user function puts aside, as a whole,
// while it evaluates its own text.
struct Registres {
    std::string p_formule;               // formula being read, Windows-1252 capitals; set by the caller
    std::int16_t p_position = 1;         // next character of p_formule not yet read, from 1
    bool lecture_finie = false;          // the cursor would pass 32,767: nothing more is read
    std::uint64_t bornes = 0;            // which of the first 64 characters of p_formule begin a symbol; see place_separateurs
    Symbole l_symbole;                   // current symbol: the one symbol of lookahead
    std::int16_t type_f = 0;             // function last recognised, its number in the table, set by test_fonction
    std::int16_t l_var = 0;              // variable last read, 1 to 26; 0 for none
    char l_matrice = ' ';                // letter of the matrix last read, or a blank
    double l_valeur = 0;                 // value of the last constant, variable or factor
    double l_valeur_expression = 0;      // result registers, one a grammar level
    double l_sauve_expression = 0;       // the one save cell of Compile_un_argument
    double l_valeur_facteur = 0;
    double l_valeur_not = 0;
    double l_valeur_exposant = 0;
    double l_valeur_terme = 0;
    double l_valeur_egalite = 0;
    double l_argument1 = 0;              // argument registers of functions of several arguments,
    double l_argument2 = 0;              // shared and not saved by nested calls
    double l_argument3 = 0;
    std::int16_t debut_symbole = 1;      // first character of the current symbol in p_formule, from 1
    std::int16_t debut_calcul = 0;       // of the part whose value is being computed; 0: none
};

// The first report of a failure since `oublie_faute`: what was said, and where the engine stood. The piece is a
// part of `formule`, from 1, `fin` the character behind it; debut 0: the whole line.
struct PremiereFaute {
    bool notee = false;
    std::string mots;                    // of the report or of the box, Windows-1252
    std::string formule;                 // p_formule as it was read, without the end mark
    std::int16_t debut = 0;
    std::int16_t fin = 0;
    std::int16_t ligne = 0;              // line of the sheet, from 1; 0: the one in calculation
    std::size_t decalage = 0;            // of an element: characters of its line in front of it
};

struct Releve;   // state/reading.hpp

// The error flag and text are no registers: an inner evaluation clears those of the formula around it.
struct Moteur : Registres {
    Releve* releve = nullptr;            // takes what is read, where somebody asks for it; usually nobody does
    std::string_view l_separateurs;      // separator characters, set by each evaluation
    bool erreur_formule = false;         // an error or a failure marked this evaluation
    std::string l_texte_erreur;          // last error told in words, Windows-1252; "" for none
    bool muet_erreur = false;            // errors take effect without a word (tabulation, area)
    bool definition_fonction_active = false;   // a user function's text is being scanned
    std::int16_t fonction_active = 0;    // variable of the user function, 1 to 26; 0 for none
    std::string nom_fonction;            // text of the user function, capitals; "" for none
    PremiereFaute faute;                 // why the line in calculation fails
    int appels_fon = 0;                  // calls of the user function that wait for an inner one
    bool appels_epuises = false;         // a call came too deep; until the outermost one ends

    std::array<double, 27> valeur_variable{};    // 1 to 26 for A to Z; slot 0 is written, never read
    std::array<bool, 27> variable_definie{};     // has a value in this pass, same index
    std::array<bool, 11> matrice_definie{};      // 1 to 10 for MA to MJ

    bool flag_travail = false;           // matrice_travail holds an operand of this formula
    bool flag_travail2 = false;          // matrice_travail2 does

    double pi_valeur = std::numbers::pi; // four times the arc tangent of 1
    std::mt19937_64 generateur;          // uniform random generator, seeded once at start-up
    std::optional<std::mt19937_64> debut_hasard;   // as it stood before this pass first drew; none: it hasn't
};
extern Moteur moteur;

// Where the random numbers of the last passes that drew some began, the newest one first. Who calculates a sheet
// again to tell of it begins there, and finds the numbers that the sheet shows. One instance, `hasard`.
struct Hasard {
    std::array<std::mt19937_64, 8> debuts;
    std::size_t nombre = 0;              // of them that are known
    std::size_t tirages = 0;             // random numbers that anything has drawn

    // The sheet that is looked at shows what began at `rang`: it comes first.
    void montre(std::size_t rang) {
        const auto ici = debuts.begin() + static_cast<std::ptrdiff_t>(rang);
        std::rotate(debuts.begin(), ici, ici + 1);
    }
};
extern Hasard hasard;

double tire_au_hasard();                 // from 0, below 1
