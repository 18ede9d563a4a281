// The file, font and printer dialogs. The names that they give get the default extension, an
// existing file is replaced only after a question, and a file to open must be there.
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/fontdlg.h>
#include <wx/stdpaths.h>

#include <string>

#include "base/codepage.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "wx/appearance.hpp"
#include "wx/dialogs.hpp"
#include "wx/file_dialogs.hpp"
#include "wx/frame.hpp"
#include "wx/modal.hpp"
#include "wx/printing.hpp"

namespace {

// The kinds of files as this system tells them: any capitals, and a name needs no dot.
wxString filtre_du_systeme(std::string_view filtre) {
    wxString sortie;
    bool motif = false;
    for (wxString partie : wxSplit(vers_wx(filtre), '|', 0)) {
        if (motif) partie = partie == "*.*" ? wxString("*") : motif_du_systeme(partie);
        sortie += (sortie.empty() ? "" : "|") + partie;
        motif = !motif;
    }
    return sortie;
}

// The name in the code page, with the default extension when it has none; a file to open that has none
// is taken as it is. False when it can't be written there: the user has been told.
bool nom_choisi(const wxFileDialog& dialogue, std::string_view extension, bool enregistre,
                std::string& nom) {
    wxFileName chemin(dialogue.GetPath());
    const bool tel_quel = !enregistre && wxFileName::FileExists(chemin.GetFullPath());
    if (!tel_quel && chemin.GetExt().empty()) chemin.SetExt(vers_wx(extension));
    const auto page = depuis_utf8(chemin.GetFullPath().utf8_string());
    if (!page) {
        port.boites.boite("ce nom de fichier a des caractères qu'une feuille ne connaît pas"_fr);
        return false;
    }
    nom = *page;
    return true;
}

// Whether the chosen file will do; otherwise the user has been told why, or doesn't want it.
bool convient(const std::string& nom, bool enregistre) {
    if (wxFileName::DirExists(vers_wx(nom))) {
        port.boites.boite(nom + std::string(" : c'est un dossier"_fr));
        return false;
    }
    const bool existe = FichierExistant(nom);
    if (enregistre)
        return !existe || demande_remplacement(
                              NomFichSeul(nom) + std::string(" existe déjà, le remplacer ?"_fr));
    if (!existe) port.boites.boite(NomFichSeul(nom) + std::string(" : ce fichier n'existe pas"_fr));
    return existe;
}

// Where the dialog begins: the folder of the name that the core proposes, or the user's documents where
// there is none, for the core's own folder is written in capitals.
wxFileName depart(const std::string& nom) {
    wxFileName propose(vers_wx(nom));
    if (propose.GetDirCount() == 0 || !propose.DirExists())
        propose.SetPath(wxStandardPaths::Get().GetDocumentsDir());
    return propose;
}

bool choisit_fichier(std::string& nom, const DemandeFichier& demande, bool enregistre) {
    wxFileName propose = depart(nom);
    for (;;) {
        ouvre_modal();
        // What is proposed for a file to open is a folder, with an extension for a name.
        wxFileDialog dialogue(cadre, vers_wx(demande.titre), propose.GetPath(),
                              enregistre ? propose.GetFullName() : wxString(),
                              filtre_du_systeme(demande.filtre), enregistre ? wxFD_SAVE : wxFD_OPEN);
        if (!enregistre) commence_par_le_nom(dialogue);
        const bool ok = dialogue.ShowModal() == wxID_OK;
        if (!ok) return false;
        propose.Assign(dialogue.GetPath());
        std::string choisi;
        if (!nom_choisi(dialogue, demande.extension, enregistre, choisi) || !convient(choisi, enregistre)) continue;
        nom = choisi;
        return true;
    }
}

bool police(std::string& nom, double& taille, bool) {
    ouvre_modal();
    wxFontData donnees;
    donnees.EnableEffects(false);
    donnees.SetInitialFont(police_wx({nom, taille, false}));
    wxFontDialog dialogue(cadre, donnees);
    dialogue.SetTitle("Police");
    prepare_police(dialogue);
    const wxString avant = police_montree(dialogue);
    const bool ok = dialogue.ShowModal() == wxID_OK;
    if (!ok) return false;
    const wxFont choisie = dialogue.GetFontData().GetChosenFont();
    // Who changes the size alone keeps the font, also one that this system shows as another.
    const bool meme = police_montree(dialogue) == avant;
    if (!meme && !en_page(choisie.GetFaceName(), nom)) return false;
    taille = choisie.GetFractionalPointSize();
    return true;
}

bool imprimante() {
    ouvre_modal();
    return choisit_imprimante(cadre);
}

}  // namespace

void installe_dialogues() {
    port.dialogues = {
        [](std::string& nom, const DemandeFichier& demande) { return choisit_fichier(nom, demande, false); },
        [](std::string& nom, const DemandeFichier& demande) { return choisit_fichier(nom, demande, true); }, police,
        imprimante};
}
