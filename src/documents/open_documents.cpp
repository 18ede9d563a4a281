// The open documents: New, Open, Open recent, Previous, Next, Close, and the items of the open and
// recent files on top of the File menu.
#include "documents/open_documents.hpp"

#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/dialog.hpp"
#include "documents/failures.hpp"
#include "documents/paths.hpp"
#include "documents/saving.hpp"
#include "documents/working_copies.hpp"
#include "editing/undo.hpp"
#include "platform/platform.hpp"
#include "shell/help_mode.hpp"
#include "shell/menu_table.hpp"
#include "shell/message.hpp"
#include "shell/status.hpp"

Documents documents;
Dlg dlg;

namespace {

// Says the name of the sheet just reached.
void dit_nom() { dit(NomFichSeul(ligne_courante_ini().nom)); }

// Refuses a sixteenth document.
bool complet() {
    if (documents.nombre_document != kDocumentsMaxi) return false;
    port.boites.boite("Nombre de fichier ouvert maxi"_fr);
    return true;
}

bool sans_titre_ouvert() {
    for (int rang = 1; rang <= documents.nombre_document; ++rang)
        if (reglages.table_ini(rang).nom == reglages.nom_sanstitre) return true;
    return false;
}

// One more document, which becomes the current one.
void ajoute_document() {
    ++documents.nombre_document;
    documents.document_courant = documents.nombre_document;
}

// All that belongs to an open sheet beside its row goes to another place of the list.
void deplace_document(int de, int vers) {
    documents.nom_copie(vers) = documents.nom_copie(de);
    documents.document_modifie(vers) = documents.document_modifie(de);
    documents.identite(vers) = documents.identite(de);
}

// The sheet of that number is closed: those behind it move up, their rows aside.
void retire_document(int rang) {
    ferme_changements(rang);
    for (int i = rang; i < documents.nombre_document; ++i) deplace_document(i + 1, i);
    documents.identite(documents.nombre_document) = 0;
}

// The current document becomes the untitled sheet, as far as its copy and its text go.
void vide_document() {
    donne_identite(documents.document_courant);
    documents.nom_copie(documents.document_courant) =
        reglages.dossier_travail + reglages.nom_sanstitre;
    port.texte.pose_texte({});
}

// Folder where the open dialog begins.
std::string dossier_propose() {
    const std::string& nom = ligne_courante_ini().nom;
    if (nom != reglages.nom_sanstitre) return cheminSeul(nom);
    const int suivant = documents.document_courant + 1;
    if (suivant > kDocumentsMaxi) return "";
    const std::string& voisin = reglages.table_ini(suivant).nom;
    return voisin == reglages.nom_sanstitre ? "" : cheminSeul(voisin);
}

// Asks for a file to open. Cancel is a failure.
std::string demande_fichier() {
    dlg.nom_fichier = dossier_propose() + "." + dlg.extension;
    dlg.annulation_defaillance = true;
    if (!port.dialogues.ouvre(dlg.nom_fichier, dlg.filtre, dlg.extension)) echoue(kAnnulation);
    std::string nom = dlg.nom_fichier;
    if (nom.size() > 2 && nom.compare(1, 2, ":.") == 0) nom.erase(2, 1);
    return nom;
}

// Puts the file at the current document's place, with a copy of it. `execute` runs each statement and
// decides what becomes of its failure. True when the copy was made.
template <class Execute>
bool place_fichier(const std::string& nom, Execute&& execute) {
    execute([&] {
        reglages.article_courant = reglages.article_vide;
        reglages.article_courant.nom = nom;
    });
    execute([&] { range_ini(nom); });
    execute([&] { rangenomcopie(nom); });
    bool copiee = false;
    execute([&] {
        reussit(port.fichiers.copie(nom, documents.nom_copie(documents.document_courant)));
        copiee = true;
    });
    return copiee;
}

// Shows the copy of the current document, another sheet than the one before it.
template <class Execute>
void montre_fichier(bool copiee, Execute&& execute) {
    donne_identite(documents.document_courant);
    execute([&] { LitNomCopie(copiee); });
    execute([] { AfficheStatus(); });
}

// Takes the place of the file to open: one more document, or that of the empty sheet, which gives way
// and leaves the file its changed mark.
void prend_place(const std::string& nom) {
    if (!port.texte.texte().empty()) {
        EcritNomCopie();
        ajoute_document();
        documents.document_modifie(documents.document_courant) = 0;
    }
    place_fichier(nom, [](auto&& instruction) { instruction(); });
}

// Open, from the dialog on. Where the file can't be brought in, the sheet that is shown stays the
// current one: otherwise it would be saved over that file.
void ouvre_fichier() {
    const std::string nom = demande_fichier();
    if (dejaOuvert(nom)) return;
    Documents avant = documents;
    Table<article> lignes = reglages.table_ini;
    execute_ou_remet([&] { prend_place(nom); }, [&] {
        std::swap(documents, avant);
        std::swap(reglages.table_ini, lignes);
    });
    montre_fichier(true, [](auto&& instruction) { instruction(); });
}

// Previous and Next: leaves the sheet, moves, shows the other one.
void change_document(void (*deplace)()) {
    if (documents.nombre_document < 2) {
        dit("un seul fichier"_fr);
        return;
    }
    EcritNomCopie();
    deplace();
    TestRepertoire();
}

// The only document gives way to the untitled sheet.
void ferme_seul() {
    reglages.table_ini(1) = reglages.article_vide;
    reglages.table_ini(1).nom = reglages.nom_sanstitre;
    vide_document();
    documents.document_modifie(1) = 0;
}

// The last document gives way to the one before it. The status is drawn before the count falls, on
// purpose: the closed file stays greyed in the menu until the next time.
void ferme_dernier() {
    retire_document(documents.document_courant);
    --documents.document_courant;
    TestRepertoire();
    --documents.nombre_document;
}

// Another document gives way to the next one, which comes up at the closed sheet's cursor, on
// purpose: the closed row still stands at that place.
void ferme_milieu() {
    retire_document(documents.document_courant);
    --documents.nombre_document;
    LitNomCopie();
    efface_nomdoc(documents.document_courant);
}

// An item of the File menu reads its number and the path.
void remplit_item(int k, const std::string& nom, bool actif) {
    EtatItem& item = menus.recents[static_cast<std::size_t>(k)];
    item.libelle = chiffres(k) + " " + nom;
    item.visible = true;
    item.actif = actif;
}

}  // namespace

article& ligne_courante_ini() { return reglages.table_ini(documents.document_courant); }

void marque_modifie() { documents.document_modifie(documents.document_courant) = 1; }

void donne_identite(int rang) {
    ferme_changements(rang);
    documents.identite(rang) = ++documents.derniere_identite;
}

void InitNomRepertoire() {
    const auto nomme = [](const article& ligne) {
        return sans_blancs(ligne.nom) != reglages.nom_sanstitre;
    };
    const article* source = &ligne_courante_ini();
    for (int rang = 1; rang <= kDocumentsMaxi && !nomme(*source); ++rang)
        source = &reglages.table_ini(rang);
    const std::string chemin =
        nomme(*source) ? source->nom : port.systeme.dossier_courant().substr(0, 3);
    reglages.nom_repertoire = capitales(cheminSeul(chemin));
}

bool dejaOuvert(const std::string& nomfic) {
    // Case counts here, on purpose: the same file in other capitals is opened twice.
    for (int rang = 1; rang <= documents.nombre_document; ++rang) {
        if (reglages.table_ini(rang).nom != nomfic) continue;
        port.boites.boite(std::string(nomfic).append("déja ouvert"_fr));
        return true;
    }
    return false;
}

void DocSuivant() {
    if (++documents.document_courant > documents.nombre_document) documents.document_courant = 1;
}

void DocPrecedent() {
    if (--documents.document_courant < 1) documents.document_courant = documents.nombre_document;
}

void TestRepertoire() {
    LitNomCopie();
    AfficheStatus();
    dit_nom();
}

void mnuNouveauItem() {
    if (annonce_item("mnuNouveauItem") || complet()) return;
    if (sans_titre_ouvert()) {
        port.boites.boite("un seul fichier SANSTITRE autorisé"_fr);
        return;
    }
    EcritNomCopie();
    ajoute_document();
    reglages.article_courant = reglages.article_vide;
    insert_nomdoc(documents.document_courant);
    documents.document_modifie(documents.document_courant) = 0;
    ligne_courante_ini() = reglages.article_vide;
    vide_document();
    AfficheStatus();
    // The variable itself goes to the message line, which may pad it, on purpose: the tests for the
    // untitled sheet then no longer match.
    message(reglages.nom_sanstitre);
}

void mnuOuvrirItem() {
    if (annonce_item("mnuOuvrirItem") || complet()) return;
    // Whatever fails passes without a word, on purpose.
    EssaieEnSilence(ouvre_fichier);
}

void mnuOuvrirSousMenuItem(int Index) {
    if (Index <= documents.nombre_document || Index > kItemsRecents) return;
    const std::string libelle = menus.recents[static_cast<std::size_t>(Index)].libelle;
    if (annonce_mots(libelle)) return;
    const std::string nom = libelle.substr(libelle.find(' ') + 1);
    if (!FichierExistant(nom)) {
        dit("fichier inexistant"_fr);
        return;
    }
    if (!port.texte.texte().empty()) {
        EssaieEnSilence(EcritNomCopie);
        ajoute_document();
    }
    EssaieEnSilence([] { documents.document_modifie(documents.document_courant) = 0; });
    const auto en_silence = [](auto&& instruction) { EssaieEnSilence(instruction); };
    montre_fichier(place_fichier(nom, en_silence), en_silence);
}

void mnuFichierPrecedentItem() {
    if (annonce_item("mnuFichierPrecedentItem")) return;
    change_document(DocPrecedent);
}

void mnuFichierSuivantItem() {
    if (annonce_item("mnuFichierSuivantItem")) return;
    change_document(DocSuivant);
}

void mnuFermerItem() {
    if (annonce_item("mnuFermerItem")) return;
    EcritNomCopie();
    if (!sauvegarde()) return;
    // The sheet that couldn't be saved under its new name stays, to be saved elsewhere.
    if (documents.enregistrement_rate) return marque_modifie();
    reglages.article_courant = ligne_courante_ini();
    if (documents.nombre_document == 1) {
        ferme_seul();
    } else if (documents.document_courant == documents.nombre_document) {
        ferme_dernier();
        return;
    } else {
        ferme_milieu();
    }
    insert_nomdoc(documents.nombre_document + 1);
    AfficheStatus();
    dit_nom();
}

void rebatit_menu_fichier() {
    int k = 0;
    while (k < documents.nombre_document) {
        ++k;
        remplit_item(k, reglages.table_ini(k).nom, false);
    }
    for (int rang = k + 1; rang <= kDocumentsMaxi; ++rang) {
        const std::string& nom = reglages.table_ini(rang).nom;
        if (nom != reglages.nom_sanstitre) remplit_item(++k, nom, true);
    }
    while (k < kItemsRecents) {
        EtatItem& item = menus.recents[static_cast<std::size_t>(++k)];
        item.actif = item.visible = false;
    }
}
