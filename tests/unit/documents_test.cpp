// What belongs to one open sheet stays with it, whatever happens to the list.
#include <doctest/doctest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "documents/open_documents.hpp"
#include "shell/events.hpp"
#include "support/program.hpp"

namespace {

using Identites = std::vector<std::uint64_t>;

Identites identites() {
    Identites toutes;
    for (int i = 1; i <= documents.nombre_document; ++i) toutes.push_back(documents.identite(i));
    return toutes;
}

void ouvre(const std::string& chemin) {
    memoire.reponses.push_back(chemin);
    evenement_menu("mnuOuvrirItem");
}

// A.VXT, B.VXT and C.VXT are open, the last one current.
void demarre_avec_trois() {
    programme_neuf();
    for (const std::string nom : {"A", "B", "C", "D"})
        pose_fichier("C:\\" + nom + ".VXT", nom + "=1\r\n");
    memoire.ligne_commande = "C:\\A.VXT";
    evenement_chargement();
    ouvre("C:\\B.VXT");
    ouvre("C:\\C.VXT");
}

}  // namespace

TEST_CASE("documents: every open sheet has a number of its own, which is never given again") {
    demarre_avec_trois();
    CHECK(identites() == Identites{1, 2, 3});
    evenement_menu("mnuFichierSuivantItem");
    evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{2, 3});
    evenement_menu("mnuNouveauItem");
    CHECK(identites() == Identites{2, 3, 4});
    // The empty sheet gives way.
    ouvre("C:\\D.VXT");
    CHECK(identites() == Identites{2, 3, 5});
    evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{2, 3});
    // The sheet closed last is still greyed in the menu; the one behind it can be chosen.
    evenement_menu("mnuOuvrirSousMenuItem", 4);
    CHECK(identites() == Identites{2, 3, 6});
    while (documents.nombre_document > 1) evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{2});
    // The last one gives way to the untitled sheet.
    evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{7});
}
