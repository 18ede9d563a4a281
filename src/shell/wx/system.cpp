// The surroundings of the program behind the port. A path that the code page can't write is unknown to
// the core.
#include "shell/wx/system.hpp"

#include <wx/filename.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <chrono>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "platform/stack.hpp"
#include "shell/wx/program_folder.hpp"

namespace {

constexpr long kEntreDeuxRegards = 100;   // milliseconds between two looks at the Escape key

std::string dossier_des_fichiers;         // Windows-1252, set once by installe_systeme
std::string commande;                     // ... the command line too
wxStopWatch dernier_regard;               // time since the last look at the Escape key

std::string en_page(const std::string& utf8) { return depuis_utf8(utf8).value_or(""); }

// A sheet given from the folder of the moment keeps its name for the next start, elsewhere.
std::string chemin_entier(const std::string& utf8) {
    wxFileName chemin(wxString::FromUTF8(utf8));
    if (chemin.FileExists()) chemin.MakeAbsolute();
    return en_page(chemin.GetFullPath().utf8_string());
}

// Escape gives up a long sum.
bool interrompu() {
    if (dernier_regard.Time() < kEntreDeuxRegards) return false;
    dernier_regard.Start();
    return wxGetKeyState(WXK_ESCAPE);
}

}  // namespace

void installe_systeme(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (!commande.empty()) commande += ' ';
        commande += arguments.size() == 1 ? chemin_entier(argument) : en_page(argument);
    }
    dossier_des_fichiers = en_page(prepare_dossier_programme());
    port.systeme.graine = [] {
        return static_cast<std::uint64_t>(
            std::chrono::system_clock::now().time_since_epoch().count());
    };
    port.systeme.dossier_programme = [] { return dossier_des_fichiers; };
    port.systeme.dossier_courant = [] { return en_page(wxGetCwd().utf8_string()); };
    port.systeme.ligne_commande = [] { return commande; };
    port.systeme.separateur = '/';
    port.systeme.interrompu = interrompu;
    port.systeme.limite_pile = limite_pile();
}
