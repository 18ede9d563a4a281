// Where the program keeps its files, and the texts that are put there at the first start: they lie in
// UTF-8 beside the program ("data") or in the system's shared folder, and are written as the sheet has
// them.
#include "shell/wx/program_folder.hpp"

#include <wx/filename.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "base/codepage.hpp"
#include "platform/files.hpp"
#include "shell/wx/positions.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::array kTextes = {"aide.txt", "fonction.txt", "lisezmoi.txt"};

fs::path dossier_executable() {
    return fs::path(wxStandardPaths::Get().GetExecutablePath().utf8_string()).parent_path();
}

// Where the texts come from, in the order in which they are looked for.
std::array<fs::path, 2> sources() {
    const fs::path ici = dossier_executable();
    return {ici / "data", ici.parent_path() / "share" / "voxtab"};
}

bool est_dossier(const fs::path& chemin) {
    std::error_code erreur;
    return fs::is_directory(chemin, erreur);
}

// The folder of the user's data: $XDG_DATA_HOME/voxtab, or ~/.local/share/voxtab.
fs::path dossier_utilisateur() {
    wxString base;
    if (!wxGetEnv("XDG_DATA_HOME", &base) || base.empty())
        base = wxGetHomeDir() + "/.local/share";
    return fs::path(base.utf8_string()) / "voxtab";
}

// A program installed for everybody keeps nothing beside itself, even when root runs it.
bool peut_garder_chez_lui(const fs::path& dossier) {
    return !est_dossier(sources()[1]) && wxFileName::IsDirWritable(wxString::FromUTF8(dossier.string()));
}

// Puts the text in the folder when it isn't there.
void seme(const fs::path& dossier, const char* nom) {
    std::error_code erreur;
    if (fs::exists(dossier / nom, erreur)) return;
    for (const fs::path& source : sources()) {
        std::string utf8;
        if (lit_fichier((source / nom).string(), utf8) != 0) continue;
        if (remplace_fichier((dossier / nom).string(), texte_de_la_feuille(utf8)) == 0) return;
    }
}

}  // namespace

std::string prepare_dossier_programme() {
    fs::path dossier = dossier_executable();
    if (!peut_garder_chez_lui(dossier)) {
        dossier = dossier_utilisateur();
        std::error_code erreur;
        fs::create_directories(dossier, erreur);
    }
    for (const char* nom : kTextes) seme(dossier, nom);
    return dossier.string();
}
