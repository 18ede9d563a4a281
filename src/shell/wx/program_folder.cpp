// Where the program keeps its files, and the texts that are put there at the first start: they lie in
// UTF-8 beside the program ("data") or in the system's shared folder, and are written as the sheet has
// them.
#include "shell/wx/program_folder.hpp"

#include <wx/stdpaths.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "base/codepage.hpp"
#include "platform/files.hpp"
#include "platform/system_path.hpp"
#include "shell/wx/positions.hpp"
#include "shell/wx/surroundings.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::array kTextes = {"aide.txt", "fonction.txt"};

fs::path dossier_executable() {
    return chemin_du_systeme(wxStandardPaths::Get().GetExecutablePath().utf8_string()).parent_path();
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

// A program installed for everybody keeps nothing beside itself, even when root runs it.
bool peut_garder_chez_lui(const fs::path& dossier) {
    return !est_dossier(sources()[1]) && verifie_ecriture(chemin_en_utf8(dossier / "VOXTAB.INI")) == 0;
}

// Puts the text in the folder when it isn't there. One that lies beside the program has been written as
// the sheet has it.
void seme(const fs::path& dossier, const char* nom) {
    std::error_code erreur;
    if (fs::exists(dossier / nom, erreur)) return;
    const std::string place = chemin_en_utf8(dossier / nom);
    std::string octets;
    for (const fs::path& source : sources()) {
        if (lit_fichier(chemin_en_utf8(source / nom), octets) != 0) continue;
        if (remplace_fichier(place, texte_de_la_feuille(octets)) == 0) return;
    }
    if (lit_fichier(chemin_en_utf8(dossier_executable() / nom), octets) == 0)
        remplace_fichier(place, octets);
}

}  // namespace

std::string prepare_dossier_programme() {
    fs::path dossier = dossier_executable();
    if (!peut_garder_chez_lui(dossier)) {
        dossier = chemin_du_systeme(dossier_de_l_utilisateur());
        std::error_code erreur;
        fs::create_directories(dossier, erreur);
    }
    for (const char* nom : kTextes) seme(dossier, nom);
    return chemin_en_utf8(dossier);
}
