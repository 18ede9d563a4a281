// What a pass tells of each line to who looks on: as what the line was treated, how its formula was read, what
// it gave. Nobody looks on usually, and then it costs a test a line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "state/reading.hpp"

// As what the pass has treated a line.
enum class RoleLigne : std::uint8_t {
    copiee,             // below a line in error: only copied
    refusee,            // a control character stands in it
    fermante,           // empty, a comment, or a line with FIN: it ends a definition and is not calculated
    formule,            // calculated
    statistiques,       // a call of STATX or STATXY on one line
    fonction,           // DEFFON
    entete_matrice,     // DEFM
    rangee,             // a row of the open matrix
    entete_donnees,     // STATX alone
    donnees,            // a data line of it
    liste,              // one of the two lists of STATXY alone
    entete,             // INC or AIR: held back until its function has been read
    fonction_de_table   // the line below it: both are calculated
};

// A line of the sheet as the pass leaves it.
struct LigneObservee {
    int numero;                  // in the sheet that is read, from 1
    int numero_ecrit;            // in the text that the pass writes
    RoleLigne role;
    std::size_t retrait;         // blanks in front of it
    std::string_view entiere;    // as the user sees it, without these
    std::string_view ligne;      // what was kept in front of an old result
    std::string_view formule;    // of that what was evaluated: no comment
    std::string_view lue;        // the formula as the engine had it, without its end mark; "" where none was read
    std::string_view resultat;   // what goes behind it
    double valeur;
    bool erreur;
    bool derniere;               // the sheet ends with it
};

struct Observation {
    void (*ligne)(const LigneObservee& observee) = nullptr;   // is told of each line once it is done
    // Whether the record of a prepared formula is of no use as long as it is read to its end without an error. The
    // line then has no `lue`; nullptr: each record is wanted.
    bool (*sans_interet)(std::string_view formule) = nullptr;
    bool poursuit = false;               // lines below one in error are calculated all the same
    bool sans_releve = false;            // the line's formula is evaluated without a record
    double valeur_avant = 0;             // what the variable had that this formula gives a value to
    bool definie_avant = false;
    Releve releve;                       // of the formula that was read for the line
    RoleLigne role = RoleLigne::copiee;
    std::string lue;                     // see LigneObservee
    std::vector<std::size_t> groupes;    // of a call of statistics: where each character of `lue` comes from
};
extern Observation* observation;         // nullptr when nobody looks on

// The line in calculation is treated as that.
inline void note_role(RoleLigne role) {
    if (observation != nullptr) [[unlikely]] observation->role = role;
}

// p_formule is about to be evaluated: its record is left out where who looks on can do without.
void allege_releve();

// The record and p_formule are those of the line: what else is evaluated for it is not recorded.
void fige_releve();

// The record begins for the next line.
void ouvre_releve();
