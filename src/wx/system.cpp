// The surroundings of the program behind the port. A path that the code page can't write is unknown to
// the core.
#include "wx/system.hpp"

#include <wx/filename.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <chrono>
#include <cstdint>
#include <utility>

#include "base/codepage.hpp"
#include "platform/patience.hpp"
#include "platform/platform.hpp"
#include "platform/stack.hpp"
#include "wx/escape.hpp"
#include "wx/program_folder.hpp"
#include "wx/surroundings.hpp"

namespace {

constexpr long kEntreDeuxRegards = 200;   // milliseconds between two looks at the Escape key
constexpr long kEntreDeuxSignes = 2000;   // between two beeps of a long calculation

std::string dossier_des_fichiers;         // Windows-1252, set once by installe_systeme
std::string commande;                     // ... the command line too
wxStopWatch dernier_regard;               // time since the last look at the Escape key
wxStopWatch dernier_signe;                // time since the last beep, or the start of the calculation

// The path in the code page. A folder or file whose name can't be written there may have a short name
// that can.
std::string en_page(const std::string& utf8) {
    if (auto page = depuis_utf8(utf8)) return *page;
    const wxUniChar separateur = wxFileName::GetPathSeparator();
    wxString reel;
    std::string sortie;
    for (const wxString& nom : wxSplit(wxString::FromUTF8(utf8), separateur, 0)) {
        reel += (reel.empty() ? wxString() : wxString(separateur)) + nom;
        auto page = depuis_utf8(nom.utf8_string());
        if (!page)
            page = depuis_utf8(wxFileName(reel).GetShortPath().AfterLast(separateur).utf8_string());
        if (!page) return "";
        sortie += (sortie.empty() ? "" : std::string(1, port.systeme.separateur)) + *page;
    }
    return sortie;
}

// A calculation asks for the first time: an Escape from before it isn't meant for it.
bool commence() {
    oublie_echap();
    dernier_signe.Start();
    dernier_regard.Start();
    return false;
}

// Escape gives up a long calculation, which beeps now and then as a sign of life.
bool interrompu() {
    if (!std::exchange(patience.demandee, true)) return commence();
    if (dernier_regard.Time() < kEntreDeuxRegards) return false;
    dernier_regard.Start();
    if (dernier_signe.Time() >= kEntreDeuxSignes) {
        port.boites.bip();
        dernier_signe.Start();
    }
    return echap_tapee();
}

}  // namespace

void installe_systeme(const std::vector<std::string>& arguments) {
    port.systeme.separateur = static_cast<char>(wxFileName::GetPathSeparator());
    commande = en_page(ligne_de_commande(arguments));
    dossier_des_fichiers = en_page(prepare_dossier_programme());
    port.systeme.graine = [] {
        return static_cast<std::uint64_t>(
            std::chrono::system_clock::now().time_since_epoch().count());
    };
    port.systeme.dossier_programme = [] { return dossier_des_fichiers; };
    port.systeme.dossier_courant = [] { return en_page(wxGetCwd().utf8_string()); };
    port.systeme.ligne_commande = [] { return commande; };
    port.systeme.interrompu = interrompu;
    port.systeme.limite_pile = limite_pile();
}
