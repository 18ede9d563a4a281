// Saving: the working copy goes onto the file, after a backup of the file's former content.
#include "documents/saving.hpp"

#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "documents/dialog.hpp"
#include "documents/failures.hpp"
#include "documents/open_documents.hpp"
#include "documents/paths.hpp"
#include "documents/working_copies.hpp"
#include "platform/platform.hpp"
#include "shell/help_mode.hpp"
#include "shell/message.hpp"
#include "shell/status.hpp"

namespace {

constexpr Procedure kEnregistrerSous{" sur EnregistrerSous"_fr, true};

const std::string& copie_courante() { return documents.nom_copie(documents.document_courant); }

// The backup's name: "bak" behind the first dot, on purpose, even when a folder's name has it.
std::string nom_sauvegarde(const std::string& nom) {
    const std::size_t point = nom.find('.');
    if (point == std::string::npos) return std::string(sans_blancs(nom)) + ".bak";
    return nom.substr(0, point + 1) + "bak";
}

void coupe_nom_courant() {
    std::string& nom = ligne_courante_ini().nom;
    nom = coupe_premier_point(nom);
}

// Asks for the name to save under, until it is another one than the untitled sheet's. False on
// Cancel.
bool demande_nom() {
    while (true) {
        const std::string& nom = ligne_courante_ini().nom;
        dlg.nom_fichier =
            nom != reglages.nom_sanstitre ? nom : reglages.nom_repertoire + reglages.nom_sanstitre;
        dlg.annulation_defaillance = true;
        if (!port.dialogues.enregistre(dlg.nom_fichier, dlg.filtre, dlg.extension)) return false;
        if (capitales(NomFichSeul(dlg.nom_fichier)) != reglages.nom_sanstitre) return true;
        port.boites.boite("nom avec \"sanstitre\" interdit"_fr);
    }
}

// The working copy follows the new name.
void deplace_copie(const std::string& ancienne) {
    // Only the last document's path was renewed, on purpose: the copy of any other one would go
    // onto itself, and that fails.
    if (documents.document_courant != documents.nombre_document) echoue(kAccesFichier);
    if (copie_courante() != ancienne) reussit(port.fichiers.deplace(ancienne, copie_courante()));
}

// The current row takes the chosen name, and the list and the working copy follow.
void renomme(const std::string& nom) noexcept {
    Tente(kEnregistrerSous, [&] {
        reglages.article_courant = ligne_courante_ini();
        reglages.article_courant.nom = nom;
    });
    Tente(kEnregistrerSous, [&] { range_ini(nom); });
    std::string ancienne;
    Tente(kEnregistrerSous, [&] { ancienne = copie_courante(); });
    Tente(kEnregistrerSous, [&] { rangenomcopie(nom); });
    Tente(kEnregistrerSous, [&] { deplace_copie(ancienne); });
}

// The changed sheet goes to its file without a word; an untitled one asks for a name.
bool sauve_modifie() {
    if (ligne_courante_ini().nom == reglages.nom_sanstitre) return enregistrersous();
    coupe_nom_courant();
    sauvebak();
    reussit(port.fichiers.copie(copie_courante(), ligne_courante_ini().nom));
    return true;
}

}  // namespace

void sauvebak() {
    const std::string& nom = ligne_courante_ini().nom;
    if (!FichierExistant(nom)) return;
    EssaieEnSilence([&] { reussit(port.fichiers.copie(nom, nom_sauvegarde(nom))); });
}

void rangefichier() {
    coupe_nom_courant();
    sauvebak();
    EcritNomCopie();
    reussit(port.fichiers.copie(copie_courante(), ligne_courante_ini().nom));
    documents.document_modifie(documents.document_courant) = 0;
}

bool enregistrersous() noexcept {
    if (annonce_item("mnuEnregistrerSousItem")) return false;
    Tente(kEnregistrerSous, sauvebak);
    bool ecrite = Tente(kEnregistrerSous, EcritNomCopie);
    bool choisi = false;
    EssaieEnSilence([&] { choisi = demande_nom(); });
    if (!choisi) return false;
    Tente(kEnregistrerSous, sauvebak);
    ecrite &= Tente(kEnregistrerSous,
                    [] { reussit(port.fichiers.copie(copie_courante(), dlg.nom_fichier)); });
    documents.enregistrement_rate = !ecrite;
    renomme(dlg.nom_fichier);
    Tente(kEnregistrerSous, [] { documents.document_modifie(documents.document_courant) = 0; });
    Tente(kEnregistrerSous, AfficheStatus);
    // Failures have been told; only Cancel gives false, on purpose.
    return true;
}

bool sauvegarde() {
    documents.enregistrement_rate = false;
    if (documents.document_modifie(documents.document_courant) == 0) return true;
    const std::string question = std::string("enregistrer sur "_fr)
                                     .append(NomFichSeul(ligne_courante_ini().nom))
                                     .append(" ?"_fr);
    switch (port.boites.oui_non_annuler(question)) {
        case Reponse::oui: return sauve_modifie();
        case Reponse::non: return true;
        default: return false;
    }
}

void mnuEnregistrerItem() {
    if (annonce_item("mnuEnregistrerItem")) return;
    if (sans_blancs(ligne_courante_ini().nom) != reglages.nom_sanstitre) {
        rangefichier();
    } else {
        if (!enregistrersous()) return;
        ligne_courante_ini().nom = dlg.nom_fichier;
        AfficheStatus();
    }
    dit("enregistrer"_fr);
}

void mnuEnregistrerSousItem() { enregistrersous(); }
