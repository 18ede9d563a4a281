// Reads a file of data that another program wrote: finds out by what its columns are parted, what its decimal
// mark is, and which lines are headings. Holds no state.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/data_table.hpp"

struct DonneesLues {
    TableDonnees table;                 // the columns of numbers
    std::vector<std::size_t> rangs;     // the number of each of them in the file, from 1
    std::vector<std::size_t> textes;    // numbers of the columns that hold words and are left aside
    std::size_t titres = 0;             // lines of headings in front of the numbers
    char decimale = 0;                  // the decimal mark, "," or "."; 0 when all numbers are whole
};

// The numbers of the file; nothing, and one French sentence in `refus`, with line and column where it helps,
// when not every line has all of them.
std::optional<DonneesLues> lis_donnees(std::string_view octets, std::string& refus);

// What was found, for the question: "120 lignes, 2 colonnes, virgule décimale".
std::string mots_donnees(const DonneesLues& donnees);
