// What "Dire la ligne" says of a line: as what the pass treats it, its formula in words, what was not read,
// its fault; and the values of its letters. Looks on while a pass runs. Changes `ligne_dite`.
#pragma once

#include <string>
#include <string_view>

// The two sentences for a line of a sheet.
struct LigneDite {
    std::string mots;       // what the line is, in words
    std::string valeurs;    // the values of the letters that it reads, and the size of matrices; or that there are none
};

// Reads the sheet as a pass would, without changing anything, up to the line `numero` (from 1) and the one
// below it. Raises the failures of memory and stack.
LigneDite dit_ligne(const std::string& texte, int numero);
