// Search and replace in the text of the port. The line found is said instead of shown. One instance of
// state, `recherche`; the commands change it, the cursor and the text, and mark the sheet as changed.
// Positions are bytes from 1, CR LF as two; letters match in any case. What isn't found is said, some
// searches beep too; nothing else is refused.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct Recherche {
    std::string chaine_recherche;        // last text searched, in capitals; proposed by the next box
    std::string chaine_remplacement;     // last replacement, as typed
    std::int16_t mode_recherche = 1;     // 1 from the cursor, 2 from the start, 3 backwards
    std::int16_t registre_recherche = 1; // search start register of start-up
};
extern Recherche recherche;

// Asks for the text to search and searches it: `mode` is "1" from the cursor on, "2" from the start, "3"
// backwards from the cursor. Cancel and an empty answer end it and change nothing.
void EntreeRecherche(std::string_view mode);
// Searches chaine_recherche from position `debut` on, moves the cursor into the match and says its line.
void rechercher(std::size_t debut);
// The same backwards from the cursor; without a match the cursor stays.
void AppelRechercheArriere();
// Replaces the first match from the character in front of the cursor to the end of its line, and says the
// line. Asks for both texts first, or takes the last ones.
void modifligne(bool avec_dialogue);
// Asks for both texts and replaces them in the text; Cancel changes nothing.
void modifTexte();
// Replaces every match from the character in front of the cursor to the end of the text, says each line and
// then the count.
void Remplacer();

// The commands of the menu items.

void mnuRechercherCurseurItem();
void mnuRechercherDebutItem();
void mnuRechercherArriereItem();
void mnuRechercherPrecedentItem();
void mnuRechercherSuivantItem();
void mnumodifLigneItem();
void mnumodifLigneSansDialItem();
void mnumodifTexteItem();
