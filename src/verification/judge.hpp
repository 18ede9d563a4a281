// Judges one line after the other as a pass tells of them, and collects what it finds. Changes the collection
// that it is given.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "sheet/observer.hpp"
#include "verification/findings.hpp"

// A heading of INC or AIR that waits for its function.
struct EnteteJuge {
    int numero = 0;              // 0: none waits
    int numero_ecrit = 0;
    std::size_t retrait = 0;
    std::string formule;
    bool suspect = false;        // it has been found to be none
};

// A letter or matrix that was read before it had a value.
struct LectureTropTot {
    Constat constat;
    int lettre = 0;              // 1 to 26, -1 to -10 a matrix, 0 the user function
};

// Who has a value.
struct ValeursConnues {
    std::array<bool, 27> lettres{};
    std::array<bool, 11> matrices{};
    bool fonction = false;
};

// A letter that a line of its own has given a value.
struct LettreDonnee {
    bool donnee = false;
    double valeur = 0;
    int changee = 0;             // the line that has changed it since without naming it: a table, statistics, FON
};

// Who can wait for a value: the matrices, the user function and the letters, as LectureTropTot has them.
inline constexpr int kAttentes = 37, kDerniereMatrice = 10;

struct Jugement {
    std::vector<Constat> constats;
    EnteteJuge entete;
    std::vector<LectureTropTot> trop_tot;
    std::array<std::vector<std::size_t>, kAttentes> attendent;   // of these the ones that have no line yet
    std::array<LettreDonnee, 27> lettres;
    bool lettres_notees = true; // false: who watches a pass tells only of what is probably wrong
    ValeursConnues valeurs;      // behind the last line, as long as something was read too early
    std::optional<Constat> ouverte;   // the heading of a definition that nothing has closed yet
    std::optional<Constat> rangee;    // the first row of the matrix that is open, as it is found when it is too long
    std::optional<Constat> listes;    // the bare STATXY that waits for its lists
    int listes_lues = 0;
    bool statx = false;          // a call of statistics has given its results
    bool bloc_refuse = false;    // a row was refused: what stands below it, to the end of the block, is no formula
};

// Judges a line; `observation` has the record of its reading.
void juge_ligne(Jugement& jugement, const LigneObservee& o);

// The sheet is at its end: headings and letters that waited are found.
void acheve_jugement(Jugement& jugement);
