// The command that says the cursor's line as the program has read it. Changes `ligne_ecoutee` alone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "verification/line_words.hpp"

// Said where the text that is shown is no sheet.
inline constexpr std::string_view kPasUneFeuille = "seulement dans la feuille"_fr;

// What was said last, so that the same key on the same line goes on with the values of its letters.
struct LigneEcoutee {
    std::string texte;      // the sheet
    int numero = 0;         // the line, from 1; 0: none was said
    std::size_t curseur = 0;
    std::string entendu;    // the message, as it was shown
    LigneDite dite;
    bool valeurs = false;   // the values were said last
};
extern LigneEcoutee ligne_ecoutee;

// Says the cursor's line in words; when nothing else was said meanwhile and the sheet is as it was, the values
// of its letters, then the words again.
void mnuDireLigneItem();
