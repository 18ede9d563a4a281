// The end of the program, in the order of its steps. A failure goes up and leaves it running. Changes the
// documents, the settings file and the folder of the working copies.
#include "shell/quitting.hpp"

#include <cstdint>
#include <string>
#include <vector>

#include "base/failure.hpp"
#include "documents/open_documents.hpp"
#include "documents/recovery.hpp"
#include "documents/saving.hpp"
#include "documents/working_copies.hpp"
#include "editing/search.hpp"
#include "platform/file_failures.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/colours.hpp"
#include "shell/help_mode.hpp"
#include "shell/status.hpp"
#include "shell/views.hpp"
#include "shell/window.hpp"

namespace {

// The settings file with the named documents first; written whole, or left as it was.
void ecrit_reglages() {
    reussit(port.fichiers.remplace(reglages.fichier_ini, enregistrements(lignes_a_garder())));
}

// A file that can't be deleted doesn't keep the others.
void vide_dossier_travail() {
    if (!port.fichiers.existe_dossier(Sansbackslash(reglages.dossier_travail))) return;
    std::vector<std::string> noms;
    reussit(port.fichiers.liste_fichiers(reglages.dossier_travail, noms));
    int echec = 0;
    for (const std::string& nom : noms) {
        const int numero = port.fichiers.efface(reglages.dossier_travail + nom);
        if (echec == 0) echec = numero;
    }
    reussit(echec);
}

// Asks about each changed sheet. Answers the number of the sheet that isn't dealt with, because the
// user cancelled there or because it can't be saved: the program must not end without it. 0: none.
std::int16_t demande_sauvegardes() {
    const std::int16_t garde = documents.document_courant;
    const std::string panneau = fenetre.panneaux[1];
    const auto revient = [&] {
        documents.document_courant = garde;
        documents.feuille_ailleurs = false;
        // A Save As has drawn the status of its sheet.
        if (fenetre.panneaux[1] != panneau) AfficheStatus();
    };
    for (std::int16_t i = 1; i <= documents.nombre_document; ++i) {
        bool continuer = true;
        documents.document_courant = i;
        documents.feuille_ailleurs = i != garde;
        execute_ou_remet([&] { continuer = sauvegarde(); }, revient);
        revient();
        if (!continuer) return i;
    }
    return 0;
}

// The user cancelled at that sheet: it is shown, so that the next command acts on what was asked
// about. After a save that failed the sheet that was shown stays, under its own title.
void reste(std::int16_t rang) {
    const std::int16_t garde = documents.document_courant;
    if (documents.enregistrement_rate || rang == garde) return;
    quitte_vues();
    documents.document_courant = rang;
    if (!TestRepertoire()) documents.document_courant = garde;
}

// The current sheet comes first in the list at the next start.
void met_courant_en_tete() {
    if (documents.document_courant <= 1) return;
    reglages.article_courant = ligne_courante_ini();
    efface_nomdoc(documents.document_courant);
    insert_nomdoc(1);
}

}  // namespace

void quitter() {
    note_feuille();
    Tente(kCommande, [] { ecrit_copie(documents.document_courant); });
    marque_disparues();
    reglages.table_ini(kLigneNombres).nom = recherche.chaine_recherche;
    reglages.table_ini(kLigneAffichage).nom = recherche.chaine_remplacement;
    if (const std::int16_t rang = demande_sauvegardes(); rang != 0) return reste(rang);
    const Table<article> lignes = reglages.table_ini;
    execute_ou_remet(
        [] {
            met_courant_en_tete();
            ecrit_reglages();
        },
        [&] { reglages.table_ini = lignes; });
    // All is saved by now: a copy that can't be deleted is told and doesn't keep the program open.
    Tente(kCommande, vide_dossier_travail);
    efface_reprises();
    fenetre.fermee = true;
    port.fenetre.termine();
}

void CmdQuitter() {
    if (vue_ouverte(Vue::choix_couleur)) return RetourListe();
    if (!annonce_mots(kMotsQuitter)) quitter();
}
