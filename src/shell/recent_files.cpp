// Sheets that are opened without a dialog. The views are left first: the sheet takes the text's place.
#include "shell/recent_files.hpp"

#include "documents/open_documents.hpp"
#include "shell/help_mode.hpp"
#include "shell/menus.hpp"
#include "shell/views.hpp"

// In key-help mode a recent file says its item.
void mnuOuvrirSousMenuItem(int Index) {
    if (Index <= documents.nombre_document || Index > kItemsRecents) return;
    const std::string libelle = etat_recent(Index)->libelle;
    if (annonce_mots(libelle)) return;
    quitte_vues();
    const std::string nom = libelle.substr(libelle.find(' ') + 1);
    ouvre_ou_dit(nom);
}

void recoit_feuille(const std::string& nom) {
    if (nom.empty()) return;
    if (aide.aide_touche) CmdVoxtab();
    quitte_vues();
    ouvre_ou_dit(nom);
}
