// Numbers as lines of a sheet: STATX, STATXY, DEFM. Holds no state.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "exchange/data_reader.hpp"

// The form that the data have by themselves: "STATX" for one column, "STATXY" for two, "DEFM" with a letter that
// the sheet doesn't use for more; "STATX 1 2" where the second column has the heading "effectif".
std::string forme_proposee(const DonneesLues& donnees, std::string_view feuille);

// The lines of the data in that form: its word in any case, then the numbers of the columns to take, as they stand
// in the file; none: all of them. Nothing, and the sentence that tells why in `refus`, where the form doesn't fit.
std::optional<std::string> lignes_de_feuille(const DonneesLues& donnees, std::string_view forme, std::string& refus);

// Where lines go in a sheet.
struct Insertion {
    std::string texte;           // the sheet with them
    std::size_t position = 0;    // of the first of them, in bytes from 0
    std::size_t ligne = 1;       // its number
    std::size_t derniere = 1;    // number of the last
};

// Puts the lines below the line of the cursor (bytes from 0), and below the old block of results that belongs to
// it; on the last line when that is empty. Nothing when the sheet would have more lines than can be numbered.
std::optional<Insertion> insere_lignes(std::string_view feuille, std::size_t curseur, std::string_view lignes);
