// Numbers in columns, as they come from a file or go to one. Holds no state.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct TableDonnees {
    std::vector<std::string> titres;             // one a column, Windows-1252; none: no headings
    std::vector<std::vector<double>> colonnes;   // all of one length

    std::size_t lignes() const { return colonnes.empty() ? 0 : colonnes.front().size(); }
};
