// Judges one line after the other as a pass tells of them, and collects what it finds. Changes the collection
// that it is given.
#pragma once

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
    int lettre = 0;              // as Releve::affectee
};

struct Jugement {
    std::vector<Constat> constats;
    EnteteJuge entete;
    std::vector<LectureTropTot> trop_tot;
    std::optional<Constat> ouverte;   // the heading of a definition that nothing has closed yet
    bool bloc_refuse = false;    // a row was refused: what stands below it, to the end of the block, is no formula
};

// Judges a line; `observation` has the record of its reading.
void juge_ligne(Jugement& jugement, const LigneObservee& o);

// The sheet is at its end: headings and letters that waited are found.
void acheve_jugement(Jugement& jugement);
