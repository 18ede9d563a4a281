// A sheet that another start of the program hands over: it is opened beside the others, whatever the
// program is doing, and nothing that was typed is lost.
#include <doctest/doctest.h>

#include <string>

#include "documents/open_documents.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/events.hpp"
#include "shell/help_mode.hpp"
#include "shell/window.hpp"
#include "support/program.hpp"

namespace {

// A.VXT is open; B.VXT and JEAN.DUPONT\C.VXT lie beside it.
void demarre_avec_une() {
    programme_neuf();
    for (const std::string nom : {"A", "B", "JEAN.DUPONT\\C"})
        pose_fichier("C:\\" + nom + ".VXT", nom.substr(nom.size() - 1) + "=1\r\n");
    memoire.ligne_commande = "C:\\A.VXT";
    evenement_chargement();
}

std::string titre() { return fenetre.titre; }

}  // namespace

TEST_CASE("handover: the sheet is opened beside those that are open, and isn't changed") {
    demarre_avec_une();
    evenement_remise("\"C:\\JEAN.DUPONT\\C.VXT\"");
    CHECK(documents.nombre_document == 2);
    CHECK(titre() == "VOXTAB C:\\JEAN.DUPONT\\C.VXT");
    CHECK(port.texte.texte() == "C=1");
    CHECK(documents.document_modifie(2) == 0);
    CHECK(memoire.boites.empty());
}

TEST_CASE("handover: a sheet that is open is shown as it stands") {
    demarre_avec_une();
    port.texte.pose_texte("A=2\r\n");
    marque_modifie();
    evenement_remise("C:\\B.VXT");
    evenement_remise("c:\\a.vxt");
    CHECK(documents.nombre_document == 2);
    CHECK(titre() == "VOXTAB C:\\A.VXT");
    CHECK(port.texte.texte() == "A=2\r\n");
    CHECK(documents.document_modifie(1) == 1);
}

TEST_CASE("handover: while a command shows a box the sheet waits until the command has ended") {
    demarre_avec_une();
    static int documents_pendant = 0;
    const auto saisie = port.boites.saisie;
    port.boites.saisie = [](std::string_view, std::string_view, std::string&) {
        evenement_remise("C:\\B.VXT");
        documents_pendant = documents.nombre_document;
        return false;
    };
    evenement_menu("mnuRechercherDebutItem");
    port.boites.saisie = saisie;
    CHECK(documents_pendant == 1);
    CHECK(documents.nombre_document == 2);
    CHECK(titre() == "VOXTAB C:\\B.VXT");
}

TEST_CASE("handover: a start without a sheet, or with one that isn't there, opens nothing") {
    demarre_avec_une();
    evenement_remise("");
    CHECK(ligne_message.dernier_message != "fichier inexistant");
    evenement_remise("C:\\ABSENT.VXT");
    CHECK(ligne_message.dernier_message == "fichier inexistant");
    CHECK(documents.nombre_document == 1);
    CHECK(titre() == "VOXTAB C:\\A.VXT");
}

TEST_CASE("handover: key help and the list of functions give way") {
    for (const bool aide_des_touches : {false, true}) {
        demarre_avec_une();
        evenement_menu(aide_des_touches ? "mnuAideToucheItem" : "mnuFonctionItem");
        evenement_remise("C:\\B.VXT");
        CHECK(!aide.aide_touche);
        CHECK(port.texte.texte() == "B=1");
        CHECK(!fenetre.txt_lecture_seule);
        evenement_menu("mnuFichierPrecedentItem");
        CHECK(port.texte.texte() == "A=1");
    }
}

TEST_CASE("handover: with fifteen sheets open the current one keeps its changed mark") {
    demarre_avec_une();
    for (int i = 2; i <= kDocumentsMaxi; ++i) {
        const std::string nom = "C:\\N" + std::to_string(i) + ".VXT";
        pose_fichier(nom, "1\r\n");
        evenement_remise(nom);
    }
    CHECK(documents.nombre_document == kDocumentsMaxi);
    marque_modifie();
    evenement_remise("C:\\B.VXT");
    CHECK(memoire.boites.size() == 1);
    CHECK(documents.document_modifie(kDocumentsMaxi) == 1);
}
