// Where the program keeps its files, and the texts that are put there at the first start and when a new
// version brings newer ones: they lie in UTF-8 beside the program ("data") or in the system's shared
// folder, and are written as the sheet has them.
#include "wx/program_folder.hpp"

#include <wx/stdpaths.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "base/codepage.hpp"
#include "platform/files.hpp"
#include "platform/system_path.hpp"
#include "settings/settings.hpp"
#include "wx/positions.hpp"
#include "wx/surroundings.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::array kTextes = {"aide.txt", "fonction.txt", "lisezmoi.txt"};

fs::path dossier_executable() {
    return chemin_du_systeme(wxStandardPaths::Get().GetExecutablePath().utf8_string()).parent_path();
}

// Where the texts come from, in the order in which they are looked for.
std::array<fs::path, 2> sources() {
    const fs::path ici = dossier_executable();
    return {ici / "data", ici.parent_path() / "share" / "voxtab"};
}

// A program installed for everybody keeps nothing beside itself, even when root runs it.
bool peut_garder_chez_lui(const fs::path& dossier) {
    return !est_dossier(chemin_en_utf8(sources()[1])) &&
           verifie_ecriture(chemin_en_utf8(dossier / kFichierReglages)) == 0;
}

// The copy comes from this source, or is newer: the user has changed it since.
bool est_a_jour(const fs::path& copie, const fs::path& source) {
    std::error_code erreur;
    const auto sienne = fs::last_write_time(copie, erreur);
    if (erreur) return false;
    const auto neuve = fs::last_write_time(source, erreur);
    return !erreur && sienne >= neuve;
}

// A text that is about to be replaced stays beside as "bak": the user may have written in it. False
// when it can't be kept.
bool garde_ancien(const fs::path& copie, const std::string& nouveau) {
    std::string ancien;
    if (lit_fichier(chemin_en_utf8(copie), ancien) != 0 || ancien == nouveau) return true;
    return remplace_fichier(chemin_en_utf8(fs::path(copie).replace_extension("bak")), ancien) == 0;
}

// Writes the text, in UTF-8 or as the sheet has it, and gives it the date of its source, by which a later
// version knows it. False when it can't be written.
bool copie_texte(const fs::path& source, const fs::path& copie, bool en_utf8) {
    std::string texte;
    if (lit_fichier(chemin_en_utf8(source), texte) != 0) return false;
    if (en_utf8) texte = texte_de_la_feuille(texte);
    if (!garde_ancien(copie, texte) || remplace_fichier(chemin_en_utf8(copie), texte) != 0) return false;
    std::error_code erreur;
    const auto date = fs::last_write_time(source, erreur);
    if (!erreur) fs::last_write_time(copie, date, erreur);
    return true;
}

// Puts the text in the folder when it isn't there, or when a new version of the program brings a newer
// one. One that lies beside the program has been written as the sheet has it.
void seme(const fs::path& dossier, const char* nom) {
    std::error_code erreur;
    const fs::path copie = dossier / nom;
    for (const fs::path& source : sources()) {
        if (!fs::exists(source / nom, erreur)) continue;
        if (est_a_jour(copie, source / nom) || copie_texte(source / nom, copie, true)) return;
    }
    const fs::path voisin = dossier_executable() / nom;
    if (fs::exists(voisin, erreur) && !est_a_jour(copie, voisin)) copie_texte(voisin, copie, false);
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
