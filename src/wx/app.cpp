// The desktop program: its stack, its display, its port, its window.
#include <wx/app.h>
#include <wx/log.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "base/memory_reserve.hpp"
#include "platform/console.hpp"
#include "platform/files.hpp"
#include "platform/platform.hpp"
#include "platform/stack.hpp"
#include "settings/tool_options.hpp"
#include "shell/events.hpp"
#include "shell/reset.hpp"
#include "wx/announce.hpp"
#include "wx/clipboard.hpp"
#include "wx/dialogs.hpp"
#include "wx/frame.hpp"
#include "wx/handover.hpp"
#include "wx/printing.hpp"
#include "wx/recovery.hpp"
#include "wx/session.hpp"
#include "wx/single_instance.hpp"
#include "wx/surroundings.hpp"
#include "wx/system.hpp"

namespace {

constexpr std::string_view kImprimeVers = "--imprime-vers=";   // for the tests: PDF instead of printer

constexpr std::string_view kSansReprise = "--sans-reprise";    // for the measures: no recovery files

constexpr std::string_view kAide =
    "voxtab [FEUILLE]\n"
    "Ouvre la calculatrice, avec la feuille donnée ou une feuille sans titre.\n"
    "  --aide     montre ce texte\n"
    "  --version  montre la version\n";

constexpr std::string_view kDejaOuvert =
    "VOXTAB est déjà ouvert. Revenez à sa fenêtre avec Alt+Tab, et ouvrez-y la feuille avec Ctrl+O."_fr;

std::vector<std::string> arguments;   // of the command line, in UTF-8, without the options
std::string fichier_pdf;              // where printing goes, "" for a printer
bool avec_reprise = true;             // changed sheets have recovery files

class Application : public wxApp {
public:
    bool OnInit() override {
        SetAppName("voxtab");
        SetAppDisplayName("VOXTAB");
        installe_fichiers_reels();
        installe_systeme(arguments);
        installe_boites();
        const std::string dossier = vers_utf8(port.systeme.dossier_programme());
        const std::string adresse = adresse_du_programme(dossier);
        if (!prend_dossier(dossier)) {
            remise_ = confie_feuille(adresse, vers_utf8(port.systeme.ligne_commande()));
            if (!remise_) dit_deja_ouvert();
            return false;
        }
        attend_lecteur();
        if (dossier_a_nous()) attend_feuilles(adresse, recoit);
        installe_port();
        if (avec_reprise) installe_reprises(dossier_a_nous());
        suit_fin_de_session();
        outils.attention = true;   // in the window, until the user has said otherwise
        evenement_chargement();
        return true;
    }

    bool remise() const { return remise_; }

private:
    static void dit_deja_ouvert() {
        attend_lecteur();
        port.boites.boite(kDejaOuvert);
    }

    // Another start gives its sheet. What the program is doing goes on; a box that is open comes to the
    // front, and the sheet is opened when the command that shows it has ended.
    static void recoit(const std::string& feuille) {
        vient_devant();
        wxTheApp->CallAfter([page = depuis_utf8(feuille)] {
            if (page) evenement_remise(*page);
        });
    }

    // The window is destroyed by the toolkit when it closes, and the program ends with it.
    static void installe_port() {
        auto* fenetre_principale = new Cadre;
        installe_fenetre(*fenetre_principale);
        installe_dialogues();
        installe_presse_papiers();
        installe_imprimante();
        if (!fichier_pdf.empty()) imprime_vers(fichier_pdf);
        fenetre_principale->installe_port_texte();
    }

    bool remise_ = false;   // the sheet is with the program that runs already
};

// Reads the options; true when one of them was all that was asked for.
bool options_seules(const std::vector<std::string>& mots) {
    for (const std::string_view mot : mots) {
        if (mot == "--aide" || mot == "--help") {
            dit_sans_fenetre(kAide);
            return true;
        }
        if (mot == "--version") {
            dit_sans_fenetre("voxtab " VOXTAB_VERSION "\n");
            return true;
        }
        if (mot.starts_with(kImprimeVers))
            fichier_pdf = mot.substr(kImprimeVers.size());
        else if (mot == kSansReprise)
            avec_reprise = false;
        else
            arguments.emplace_back(mot);
    }
    return false;
}

// Starts the toolkit; false where no window can be had.
bool ouvre_ecran(char** argv) {
    const wxLogNull sans_message;
    int seul = 1;   // the toolkit gets the program's name alone
    return wxEntryStart(seul, argv);
}

}  // namespace

[[maybe_unused]] Application& wxGetApp();   // the macro makes it, and clang asks who calls it
wxIMPLEMENT_APP_NO_MAIN(Application);

int main(int argc, char** argv) {
    agrandit_pile(argv);
    installe_reserve();
    if (options_seules(prepare_console(argc, argv))) return 0;
    choisit_langue();
    note_lancement();
    if (!ouvre_ecran(argv)) {
        std::cerr << "voxtab : aucun écran n'est disponible ; voxtab-calc calcule dans un terminal.\n";
        return 1;
    }
    reinitialise_tout();
    const bool commence = wxTheApp->CallOnInit();
    const bool remise = static_cast<Application*>(wxTheApp)->remise();
    const int statut = commence ? wxTheApp->OnRun() : remise ? 0 : 1;
    ferme_reprises();
    n_attend_plus();
    rend_dossier();
    wxEntryCleanup();
    return statut;
}
