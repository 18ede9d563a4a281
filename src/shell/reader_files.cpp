// Installation of the screen reader's files: looks for the reader's settings folder on the disk C:,
// proposes it, and copies two files there. Changes files, and the pointer while it looks.
#include "shell/reader_files.hpp"

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "platform/file_failures.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/window.hpp"

namespace {

constexpr Procedure kJaws{"sur jaws", false};
constexpr std::int16_t kDossiersParBip = 1000;

// Folders visited between two beeps, and the folder that the search leaves.
struct RechercheScripts {
    std::string dossier_scripts;  // ends in "\" after a search, without one when it is proposed
    std::int16_t NombreBip = 0;   // 0 to 999
};

// Looks for a folder of that name (capitals) below `CheminDossier`, which ends in "\". A find ends the loop
// of its level alone: a later one on another branch takes its place. Kept: see the oddities,
// later-reader-folder. A folder that can't be read is passed over in silence.
void recherche_dir(RechercheScripts& r, const std::string& CheminDossier, std::string_view dossier,
                   bool& trouve) {
    if (++r.NombreBip == kDossiersParBip) {
        r.NombreBip = 0;
        port.boites.bip();
    }
    std::vector<std::string> noms;
    if (port.fichiers.liste_dossiers(CheminDossier, noms) != 0) return;
    for (const std::string& nom : noms) {
        const std::string grand = capitales(nom);
        if (grand == "ALL USERS") continue;
        if (grand == dossier) {
            r.dossier_scripts = CheminDossier;
            trouve = true;
            return;
        }
        recherche_dir(r, CheminDossier + nom + "\\", dossier, trouve);
    }
}

// The pointer is the hourglass while a search runs.
void montre_sablier(bool sablier) {
    fenetre.sablier = sablier;
    port.fenetre.montre();
}

// Looks for a folder anywhere below another; `dossier_scripts` is where it lies.
void rechercherDossier(RechercheScripts& r, std::string_view CheminDossier,
                       std::string_view dossier, bool& trouve) noexcept {
    std::string chemin, mots;
    Tente(kJaws, [&] { chemin = CheminDossier; });
    Tente(kJaws,
          [&] { mots = "sur rechercherDossier" + chemin + ";" + std::string(dossier) + ";"; });
    const Procedure procedure{mots, false};
    trouve = false;
    Tente(procedure, [] { montre_sablier(true); });
    r.NombreBip = 0;
    Tente(procedure, [&] { recherche_dir(r, chemin + "\\", dossier, trouve); });
    Tente(procedure, [] { montre_sablier(false); });
}

// Proposes the French settings folder of a version of the reader, either of the two names that it
// bears. False when there is none.
bool propose_langue(RechercheScripts& r, const std::string& version) {
    for (const std::string_view langue : {"fra", "frc"}) {
        r.dossier_scripts = version + "\\settings\\" + std::string(langue);
        if (port.fichiers.existe_dossier(r.dossier_scripts)) return true;
    }
    return false;
}

// The settings folder among those of the users. False when there is none.
bool propose_utilisateurs(RechercheScripts& r) noexcept {
    bool trouve = false;
    rechercherDossier(r, "C:\\Documents and Settings", "FREEDOM SCIENTIFIC", trouve);
    if (!trouve) rechercherDossier(r, "c:\\users", "FREEDOM SCIENTIFIC", trouve);
    if (!trouve) return false;
    std::string editeur;
    Tente(kJaws, [&] { editeur = r.dossier_scripts + "Freedom Scientific"; });
    rechercherDossier(r, editeur, "JAWS", trouve);
    if (!trouve) return false;
    std::vector<std::string> versions;
    Tente(kJaws,
          [&] { reussit(port.fichiers.liste_dossiers(r.dossier_scripts + "JAWS\\", versions)); });
    if (versions.empty()) return false;
    // The last version in the folder's order, whatever its number.
    bool propose = false;
    Tente(kJaws,
          [&] { propose = propose_langue(r, r.dossier_scripts + "JAWS\\" + versions.back()); });
    return propose;
}

// The settings folder of a reader in the root of the disk; the last one of the list counts. False
// when there is none.
bool propose_racine(RechercheScripts& r) noexcept {
    // A system without that disk has no reader there.
    if (!port.fichiers.existe_dossier("C:\\")) return false;
    std::vector<std::string> noms;
    Tente(kJaws, [&] { reussit(port.fichiers.liste_dossiers("C:\\", noms)); });
    bool propose = false;
    Tente(kJaws, [&] {
        r.dossier_scripts.clear();
        for (const std::string& nom : noms)
            if (capitales(nom).starts_with("JAWS")) r.dossier_scripts = "C:\\" + nom;
        propose = !r.dossier_scripts.empty() && propose_langue(r, std::string(r.dossier_scripts));
    });
    return propose;
}

// Copies one of the program's files to the reader's folder when the program has it.
void copie_script(const std::string& nom, const std::string& destination) {
    const std::string source = reglages.dossier_programme + nom;
    if (FichierExistant(source)) reussit(port.fichiers.copie(source, destination + nom));
}

}  // namespace

void jaws(const std::string& nom) noexcept {
    RechercheScripts r;
    if (!propose_utilisateurs(r) && !propose_racine(r))
        Tente(kJaws, [&] { r.dossier_scripts = "C:\\JAWS\\settings\\fra"; });
    std::string reponse;
    bool repondu = false;
    Tente(kJaws, [&] {
        repondu = port.boites.saisie("Chemin des scripts de jaws", r.dossier_scripts, reponse);
    });
    if (!repondu || reponse.empty()) return;
    Tente(kJaws, [&] { reponse = Sansbackslash(reponse); });
    if (!port.fichiers.existe_dossier(reponse)) {
        Tente(kJaws, [] { port.boites.boite("chemin inconnu"); });
        return;
    }
    Tente(kJaws, [&] { reponse = ajoutbackslash(reponse); });
    Tente(kJaws, [&] { copie_script(nom + ".jdf", reponse); });
    Tente(kJaws, [&] { copie_script(nom + ".jcf", reponse); });
}
