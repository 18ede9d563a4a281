// The column total: the sum of all lines after a pass that has succeeded, and the new last line "Z=".
// Changes the tables of `feuille` and the variable Z.
#pragma once

#include <string>
#include <string_view>

// What the total gives back: the cursor goes to the end of the text, the result is to be said.
struct Total {
    std::string texte;           // the sheet with its total, Windows-1252
    std::string_view resultat;   // " = " and the sum; stands in `feuille` until the next pass
};

// Adds the total to `texte`, which the last pass has written. Failures go up to the command: 6 when the sheet
// has 32,767 lines and no room for one more, those of the addition, 7 for want of memory.
Total total_colonne(const std::string& texte);
