// A sheet of mixed lines as users write them, and its formulas in the languages of the two rivals.
// Always the same for the same number of lines.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct FeuilleMixte {
    std::string texte;                  // the sheet, Windows-1252 with CR LF
    std::vector<std::string> muparser;  // its formulas for muParser, in order
    std::string bc;                     // the same for bc, one a line
    std::vector<std::int16_t> numero;   // line of each formula, from 1
    std::vector<bool> affectation;      // it stores in a variable: bc prints nothing for it
};

// Which formulas a sheet is made of.
enum class Melange {
    tout,      // four in ten are assignments, four plain arithmetic, two call functions
    fonctions  // each calls a function or uses Pi
};

// A sheet of `lignes` lines (at least 26): first every variable gets a value, then about one line
// in eight is empty or a comment, and six in ten of the others carry an old result.
FeuilleMixte cree_feuille_mixte(int lignes, Melange melange = Melange::tout);
