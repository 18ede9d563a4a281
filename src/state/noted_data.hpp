// The data that a calculation goes through, with all their digits, for who asks for them: the groups of a data
// set, the rows of a table, the interval of a function. Noted while `notees` points to a record; an ordinary
// calculation has none.
#pragma once

#include <vector>

struct GroupeNote {
    double x = 0, y = 0, effectif = 0;   // of single values y is 0
};

struct RangeeNotee {
    double x = 0, y = 0;                 // y: what the function gives at x
};

struct DonneesNotees {
    std::vector<GroupeNote> groupes;     // of the data set of the line
    bool couples = false;                // they are pairs
    std::vector<RangeeNotee> rangees;    // of a table (INC)
    int variable = 0;                    // letter of a tabulation or an area, 1 to 26; 0: the line is none
    double debut = 0, fin = 0;           // its interval
    bool aire = false;                   // it is an area (AIR)
    bool perdue = false;                 // the memory has run out: the record isn't whole
};
extern DonneesNotees* notees;

// The notes themselves. Memory that runs out ends the record, never the calculation.
void note_debut_de_groupes(bool couples) noexcept;
void note_groupe(double x, double y, double effectif) noexcept;
void note_intervalle(int variable, double debut, double fin, bool aire) noexcept;
void note_rangee(double x, double y) noexcept;
