// Recognises, below a line that makes a block of results, the whole block that an earlier pass wrote there.
// Reads ahead in the sheet; changes nothing.
#pragma once

#include <cstddef>
#include <string_view>

enum class GenreBloc { table, statistiques, tri, matrice };

// What stands below a line: no line of an old block, or all of it.
struct AncienBloc {
    int lignes = 0;            // lines of the block
    std::size_t position = 0;  // where the line after it begins, from 1; without a block, the line that is none of it
    bool fin = false;          // the block ends with the sheet
};

// Looks at the lines of `texte` from `position` (from 1) on. A block counts only when each line has the form
// that the pass gives it and its own closing line ends it; the rows of a table close by themselves.
AncienBloc ancien_bloc(GenreBloc genre, std::string_view texte, std::size_t position);

// True for a value as the sheet shows it: figures in any mode, "-3Pi/4", "INF", or nothing where a value had
// no form.
bool est_valeur(std::string_view texte);

// True when the old result that a pass cut off is the count of a sorted data set.
bool est_compte_de_tri(std::string_view coupe);
