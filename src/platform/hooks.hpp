// What a lower floor has to tell the floors above it, as procedures that the program fills in once. Each
// does nothing until then. One instance, `crochets`.
#pragma once

struct Crochets {
    void (*document_modifie)() = [] {};              // the sheet shown has become unlike its file
    void (*statut)() = [] {};                        // another sheet is shown, or under another name
    bool (*feuille_montree)() = [] { return true; }; // the text control shows a sheet, not the key help
    void (*donnees_triees)() = [] {};                // the data set is sorted: its block is to be written
    void (*ligne_calculee)(int) = [](int) {};        // a pass has calculated the line of that number
};
extern Crochets crochets;
