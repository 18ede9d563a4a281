// Saving: the working copy goes onto the file, after a backup of the file's former content.
#include "documents/saving.hpp"

#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "documents/dialog.hpp"
#include "documents/documents.hpp"
#include "documents/opened_file.hpp"
#include "documents/recovery.hpp"
#include "documents/recovery_file.hpp"
#include "documents/working_copies.hpp"
#include "platform/file_failures.hpp"
#include "platform/hooks.hpp"
#include "platform/message.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"

namespace {

constexpr std::string_view kEnregistre = "enregistrer";   // said when a sheet has been saved

constexpr Procedure kEnregistrerSous{" sur EnregistrerSous"_fr, true};


// The backup's name: "bak" after the first dot of the file's name. Kept: see the oddities,
// cut-at-first-dot.
std::string nom_sauvegarde(const std::string& nom) {
    const std::size_t point = premier_point(nom);
    if (point == std::string::npos) return std::string(sans_blancs(nom)) + ".bak";
    return nom.substr(0, point + 1) + "bak";
}

// True for a file of that folder.
bool est_dans(const std::string& nom, const std::string& dossier) {
    return meme_document(cheminSeul(nom), dossier);
}

// The current name is cut, unless that would make it the name of another file. Kept: see the oddities,
// cut-at-first-dot.
void coupe_nom_courant() {
    std::string& nom = ligne_courante_ini().nom;
    std::string coupe = coupe_premier_point(nom);
    if (coupe == nom || FichierExistant(coupe) || reserve(coupe) ||
        rang_ouvert(coupe, documents.document_courant) != 0)
        return;
    nom = std::move(coupe);
}

// True when the sheet must ask where it goes: it is untitled, its place is the program's, another
// open sheet bears its name, or it bears the untitled sheet's and a file is there already.
bool sans_place() {
    const int rang = documents.document_courant;
    const std::string& nom = ligne_courante_ini().nom;
    if (sans_blancs(nom) == reglages.nom_sanstitre || reserve(nom) || rang_ouvert(nom, rang) != 0)
        return true;
    return nom == reglages.article_vide.nom && documents.a_son_fichier(rang) == 0 &&
           FichierExistant(nom);
}

// Refuses a chosen name aloud: the untitled sheet's, a place of the program's, another open sheet's.
bool refuse_nom(const std::string& nom) {
    if (capitales(NomFichSeul(nom)) == reglages.nom_sanstitre) {
        port.boites.boite("nom avec \"sanstitre\" interdit"_fr);
    } else if (reserve(nom)) {
        port.boites.boite("nom réservé au programme"_fr);
    } else if (rang_ouvert(nom, documents.document_courant) != 0) {
        port.boites.boite(std::string(nom).append(kDejaOuvert));
    } else {
        return false;
    }
    return true;
}

// Asks for the name to save under, until it is one that can be taken. False on Cancel.
bool demande_nom() {
    do {
        const std::string& nom = ligne_courante_ini().nom;
        dlg.nom_fichier =
            nom != reglages.nom_sanstitre ? nom : reglages.nom_repertoire + reglages.nom_sanstitre;
        if (!port.dialogues.enregistre(dlg.nom_fichier, {dlg.filtre, dlg.extension, kTitreEnregistrer})) return false;
    } while (refuse_nom(dlg.nom_fichier));
    return true;
}

// The text of the current sheet goes onto that file, whatever has become of its working copy.
void ecrit_fichier(const std::string& nom) {
    const int rang = documents.document_courant;
    const std::string octets = octets_du_fichier(documents.texte(rang) + "\r\n");
    reussit(port.fichiers.remplace(nom, octets));
    documents.a_son_fichier(rang) = 1;
    documents.base(rang) = somme_octets(octets);
}

// The current sheet's backup, then its file, under the cut name. A failure leaves the name as it was.
template <class Instruction>
void ecrit_sous_son_nom(Instruction&& avant_fichier) {
    std::string ancien = ligne_courante_ini().nom;
    execute_ou_remet(
        [&] {
            coupe_nom_courant();
            sauvebak();
            avant_fichier();
            ecrit_fichier(ligne_courante_ini().nom);
        },
        [&] { ligne_courante_ini().nom = std::move(ancien); });
}

// The working copy follows the new name; where it can't, the sheet keeps the copy that it has.
void deplace_copie(const std::string& nom) {
    const int rang = documents.document_courant;
    std::string nouvelle = copie_pour(nom, rang);
    std::string& copie = documents.nom_copie(rang);
    if (meme_chemin(copie, nouvelle)) return;
    if (documents.copie_a_jour(rang) != 0) {
        reussit(port.fichiers.deplace(copie, nouvelle));
        copie = std::move(nouvelle);
    } else {
        copie = std::move(nouvelle);
        EssaieEnSilence([&] { ecrit_copie(rang); });
    }
}

// The current row takes the chosen name, and the list and the working copy follow.
void renomme(const std::string& nom) noexcept {
    Tente(kEnregistrerSous, [&] {
        article ligne = ligne_courante_ini();
        ligne.nom = nom;
        reglages.article_courant = std::move(ligne);
        range_ini(nom);
    });
    Tente(kEnregistrerSous, [&] { deplace_copie(nom); });
}

// The changed sheet goes to its file without a word; one without a place asks for a name.
bool sauve_modifie() {
    if (sans_place()) return enregistrersous();
    documents.enregistrement_rate = true;
    ecrit_sous_son_nom([] {});
    documents.enregistrement_rate = false;
    note_enregistree(documents.document_courant);
    return true;
}

}  // namespace

bool reserve(const std::string& nom) {
    for (const std::string& dossier : {reglages.dossier_travail, dossier_secours(), dossier_reprise()})
        if (est_dans(nom, dossier)) return true;
    for (const char* const sien : {kFichierReglages, kFichierOutils, kFichierInstallation})
        if (meme_document(nom, reglages.dossier_programme + sien)) return true;
    const std::size_t point = premier_point(nom);
    return point != std::string::npos && capitales(nom.substr(point)) == ".BAK";
}

// A working copy that was opened as a sheet goes when the program ends.
bool marque_disparues() {
    bool une = false;
    for (int rang = 1; rang <= documents.nombre_document; ++rang) {
        const std::string& nom = reglages.table_ini(rang).nom;
        if (documents.a_son_fichier(rang) == 0 || documents.texte(rang).empty() ||
            (FichierExistant(nom) && !est_dans(nom, reglages.dossier_travail)))
            continue;
        documents.document_modifie(rang) = 1;
        une = true;
    }
    return une;
}

// An open sheet is never overwritten by a backup. What is the program's own needs none: beside a recovery
// file it would be offered as another one.
void sauvebak() {
    const std::string& nom = ligne_courante_ini().nom;
    if (!FichierExistant(nom) || reserve(nom)) return;
    const std::string sauvegarde = nom_sauvegarde(nom);
    if (rang_ouvert(sauvegarde, documents.document_courant) != 0) return;
    EssaieEnSilence([&] { reussit(port.fichiers.copie(nom, sauvegarde)); });
}

void rangefichier() {
    note_feuille();
    ecrit_sous_son_nom([] { EssaieEnSilence(EcritNomCopie); });
    documents.document_modifie(documents.document_courant) = 0;
}

bool enregistrersous() noexcept {
    documents.enregistrement_rate = false;
    Tente(kEnregistrerSous, sauvebak);
    if (!Tente(kEnregistrerSous, note_feuille)) return false;
    Tente(kEnregistrerSous, EcritNomCopie);
    bool choisi = false;
    EssaieEnSilence([&] { choisi = demande_nom(); });
    if (!choisi) return false;
    Tente(kEnregistrerSous, sauvebak);
    documents.enregistrement_rate =
        !Tente(kEnregistrerSous, [] { ecrit_fichier(dlg.nom_fichier); });
    if (documents.enregistrement_rate) return false;
    renomme(dlg.nom_fichier);
    Tente(kEnregistrerSous, [] { documents.document_modifie(documents.document_courant) = 0; });
    Tente(kEnregistrerSous, crochets.statut);
    Tente(kEnregistrerSous, [] { dit_si_hors_liste(dlg.nom_fichier); });
    return true;
}

bool sauvegarde() {
    documents.enregistrement_rate = false;
    marque_disparues();
    if (documents.document_modifie(documents.document_courant) == 0) return true;
    std::string question("enregistrer sur "_fr);
    question.append(NomFichSeul(ligne_courante_ini().nom)).append(" ?"_fr);
    switch (port.boites.oui_non_annuler(question)) {
        case Reponse::oui: return sauve_modifie();
        case Reponse::non: return true;
        default:
            marque_modifie();   // a file that has gone counts as a change from now on
            return false;
    }
}

void mnuEnregistrerItem() {
    if (!sans_place()) {
        rangefichier();
    } else {
        if (!enregistrersous()) return;
        ligne_courante_ini().nom = dlg.nom_fichier;
        crochets.statut();
    }
    dit(kEnregistre);
}

// The message line has no words for it; who can't see the new title is told.
void mnuEnregistrerSousItem() {
    if (enregistrersous()) souffle(kEnregistre);
}
