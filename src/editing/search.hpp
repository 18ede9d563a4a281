// Search and replace. The found line is said instead of shown. One instance of state, `recherche`;
// the commands change it, the cursor and the text.
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

void EntreeRecherche(std::string_view mode);     // "1", "2" or "3"
void rechercher(std::size_t debut);
void AppelRechercheArriere();
void modifligne(bool avec_dialogue);
void modifTexte();
void Remplacer();

void mnuRechercherCurseurItem();
void mnuRechercherDebutItem();
void mnuRechercherArriereItem();
void mnuRechercherPrecedentItem();
void mnuRechercherSuivantItem();
void mnumodifLigneItem();
void mnumodifLigneSansDialItem();
void mnumodifTexteItem();
