// The installation of the screen reader's files on real folders: for each layout of the reader and
// each answer, what is proposed, where the files land, that the marker is gone, and that the second
// start asks nothing. Changes the disk C: of the tests.   reader_tree ROOT, the folder that stands
// for "C:\"
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reader/tree.hpp"
#include "shell/startup.hpp"
#include "support/program.hpp"

namespace {

namespace fs = std::filesystem;
using Noms = std::vector<std::string>;

constexpr const char* kJdf = "dictionnaire neuf";
constexpr const char* kJcf = "réglages neufs";

// One disk and one answer. Paths are UTF-8 after "C:\", with "\".
struct Cas {
    const char* nom;
    Noms dossiers;  // folders of the disk
    std::optional<std::string>
        reponse;          // path answered; nothing is Cancel, "=" accepts the proposal
    std::string propose;  // path proposed
    std::string copie;    // folder where the files land; "" for nowhere
    Noms boites{};        // boxes shown
    bool jdf = true;      // the program has that file
};

const std::string kAncien = "JAWS\\settings\\fra";  // proposed when nothing was found
const std::string kLecteur = "Users\\Zoé Müller\\AppData\\Roaming\\Freedom Scientific\\JAWS\\";
const std::string kXp = "Documents and Settings\\luc\\Application Data\\Freedom Scientific\\JAWS\\";

const Cas kCas[] = {{"no reader, Cancel", {}, {}, kAncien, ""},
                    {"no reader, the proposal accepted", {}, "=", kAncien, "", {"chemin inconnu"}},
                    {"one version",
                     {kLecteur + "2024\\settings\\fra"},
                     "=",
                     kLecteur + "2024\\settings\\fra",
                     kLecteur + "2024\\settings\\fra"},
                    {"one version, its folders in other capitals",
                     {kLecteur + "2024\\Settings\\FRA"},
                     "=",
                     kLecteur + "2024\\settings\\fra",
                     kLecteur + "2024\\Settings\\FRA"},
                    {"two versions: the last one",
                     {kLecteur + "2023\\settings\\fra", kLecteur + "2024\\settings\\fra"},
                     "=",
                     kLecteur + "2024\\settings\\fra",
                     kLecteur + "2024\\settings\\fra"},
                    {"two versions: the last in the folder's order, whatever its number",
                     {kLecteur + "10.0\\settings\\fra", kLecteur + "9.0\\settings\\fra"},
                     "=",
                     kLecteur + "9.0\\settings\\fra",
                     kLecteur + "9.0\\settings\\fra"},
                    {"two versions, the last one without French settings",
                     {kLecteur + "2023\\settings\\fra", kLecteur + "2024\\settings\\enu"},
                     "=",
                     kAncien,
                     "",
                     {"chemin inconnu"}},
                    {"French of Canada",
                     {kLecteur + "2024\\settings\\frc"},
                     "=",
                     kLecteur + "2024\\settings\\frc",
                     kLecteur + "2024\\settings\\frc"},
                    {"both kinds of French",
                     {kLecteur + "2024\\settings\\frc", kLecteur + "2024\\settings\\fra"},
                     "=",
                     kLecteur + "2024\\settings\\fra",
                     kLecteur + "2024\\settings\\fra"},
                    {"the folder of users of older systems",
                     {kXp + "12.0\\settings\\fra", kLecteur + "2024\\settings\\fra"},
                     "=",
                     kXp + "12.0\\settings\\fra",
                     kXp + "12.0\\settings\\fra"},
                    {"the settings of all users don't count",
                     {"Users\\All Users\\Freedom Scientific\\JAWS\\2024\\settings\\fra"},
                     {},
                     kAncien,
                     ""},
                    {"the reader in the root of the disk",
                     {"JAWS9\\settings\\fra"},
                     "=",
                     "JAWS9\\settings\\fra",
                     "JAWS9\\settings\\fra"},
                    {"two readers in the root of the disk",
                     {"JAWS8\\settings\\fra", "JAWS9\\settings\\frc"},
                     "=",
                     "JAWS9\\settings\\frc",
                     "JAWS9\\settings\\frc"},
                    {"a folder of the user's choice",
                     {"Mes réglages\\fra"},
                     "C:\\Mes réglages\\fra",
                     kAncien,
                     "Mes réglages\\fra"},
                    {"a folder answered with its backslash",
                     {"Mes réglages\\fra"},
                     "C:\\Mes réglages\\fra\\",
                     kAncien,
                     "Mes réglages\\fra"},
                    {"Cancel where the reader is",
                     {kLecteur + "2024\\settings\\fra"},
                     {},
                     kLecteur + "2024\\settings\\fra",
                     ""},
                    {"an empty answer",
                     {kLecteur + "2024\\settings\\fra"},
                     "",
                     kLecteur + "2024\\settings\\fra",
                     ""},
                    {"an unknown path",
                     {kLecteur + "2024\\settings\\fra"},
                     "C:\\nulle part\\fra",
                     kLecteur + "2024\\settings\\fra",
                     "",
                     {"chemin inconnu"}},
                    {"one character, though it is a folder", {}, "\\", kAncien, "", {"chemin inconnu"}},
                    {"one file missing",
                     {kLecteur + "2024\\settings\\fra"},
                     "=",
                     kLecteur + "2024\\settings\\fra",
                     kLecteur + "2024\\settings\\fra",
                     {},
                     false}};

// What a disk holds of the tests, folders of the root.
constexpr const char* kTraces[] = {"VOXTAB",
                                   "JAWS",
                                   "JAWS8",
                                   "JAWS9",
                                   "Mes réglages",
                                   "Documents and Settings",
                                   "Users/Zoé Müller",
                                   "Users/All Users"};

fs::path racine;
int echecs = 0;

fs::path du_systeme(std::string utf8) {
    for (char& c : utf8)
        if (c == '\\') c = '/';
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

void attend(const Cas& cas, const char* quoi, bool vrai, const std::string& obtenu = "") {
    if (vrai) return;
    ++echecs;
    std::printf("%s: %s%s%s\n", cas.nom, quoi, obtenu.empty() ? "" : ": ", obtenu.c_str());
}

void ecrit(const fs::path& chemin, std::string_view contenu) {
    fs::create_directories(chemin.parent_path());
    std::ofstream(chemin, std::ios::binary) << contenu;
}

// The bytes of a file; nothing when there is none.
std::optional<std::string> lit(const fs::path& chemin) {
    std::ifstream fichier(chemin, std::ios::binary);
    if (!fichier) return {};
    return std::string(std::istreambuf_iterator<char>(fichier), {});
}

void pose_disque(const Cas& cas) {
    for (const char* trace : kTraces) fs::remove_all(racine / du_systeme(trace));
    ecrit(racine / "VOXTAB/verjaws.ini", "");
    if (cas.jdf) ecrit(racine / "VOXTAB/voxtab.jdf", kJdf);
    ecrit(racine / "VOXTAB/voxtab.jcf", kJcf);
    for (const std::string& dossier : cas.dossiers) {
        fs::create_directories(racine / du_systeme(dossier));
        // An old dictionary is replaced, when there is a new one.
        ecrit(racine / du_systeme(dossier) / "voxtab.jdf", "ancien");
    }
}

// The program starts on the disk.
void demarre_sur_le_disque(const std::optional<std::string>& reponse) {
    programme_neuf();
    installe_disque(racine);
    if (reponse) memoire.reponses.push_back(reponse);
    demarre();
}

void verifie_fichiers(const Cas& cas) {
    for (const std::string& dossier : cas.dossiers) {
        const fs::path ici = racine / du_systeme(dossier);
        const bool ici_copie = dossier == cas.copie;
        attend(cas, "dictionary",
               lit(ici / "voxtab.jdf") == (ici_copie && cas.jdf ? kJdf : "ancien"), dossier);
        attend(cas, "settings",
               lit(ici / "voxtab.jcf") ==
                   (ici_copie ? std::optional<std::string>(kJcf) : std::nullopt),
               dossier);
    }
}

void essaie(const Cas& cas) {
    pose_disque(cas);
    const std::string propose = cp("C:\\" + cas.propose);
    demarre_sur_le_disque(!cas.reponse          ? cas.reponse
                          : *cas.reponse == "=" ? propose
                                                : cp(*cas.reponse));
    attend(cas, "one question", memoire.saisies.size() == 1);
    if (!memoire.saisies.empty()) {
        const std::string vu = memoire.saisies[0].propose;
        attend(cas, "prompt", memoire.saisies[0].invite == "Chemin des scripts de jaws");
        attend(cas, "proposal", capitales(vu) == capitales(propose), vers_utf8(vu));
    }
    Noms boites;
    for (const std::string& boite : memoire.boites) boites.push_back(vers_utf8(boite));
    attend(cas, "boxes", boites == cas.boites, boites.empty() ? "none" : boites[0]);
    verifie_fichiers(cas);
    attend(cas, "the marker is gone", !fs::exists(racine / "VOXTAB/verjaws.ini"));
    demarre_sur_le_disque({});
    attend(cas, "the second start asks nothing", memoire.saisies.empty() && memoire.boites.empty());
}

// How long something takes, in seconds.
template <typename Travail>
double duree(Travail travail) {
    const auto debut = std::chrono::steady_clock::now();
    travail();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
}

// The system's own walk through folders, which no search can be faster than.
std::size_t parcourt(const fs::path& dossier) {
    std::size_t nombre = 0;
    for (const auto& entree : fs::directory_iterator(dossier))
        if (entree.is_directory() && !entree.is_symlink()) nombre += 1 + parcourt(entree.path());
    return nombre;
}

// A search through twenty thousand folders below a user's own takes a second at most, or twice what the
// walk alone takes where the machine is that slow. The shortest of three times each.
void essaie_vite() {
    const fs::path dossiers = racine / du_systeme("Users/vingt mille");
    for (int i = 0; i < 200; ++i)
        for (int j = 0; j < 100; ++j)
            fs::create_directories(dossiers / std::to_string(i) / std::to_string(j));
    double recherche = 1e9;
    double parcours = 1e9;
    for (int fois = 0; fois < 3; ++fois) {
        pose_disque(kCas[0]);
        recherche = std::min(recherche, duree([] { demarre_sur_le_disque({}); }));
        parcours = std::min(parcours, duree([&] { parcourt(dossiers); }));
    }
    fs::remove_all(dossiers);
    std::printf("20,000 folders searched in %.2f s, walked through in %.2f s\n", recherche, parcours);
    attend(kCas[0], "the search takes too long", recherche < std::max(1.0, 2 * parcours));
}

}  // namespace

int main(int nombre, char** mots) {
    if (nombre != 2) {
        std::fputs(
            "reader_tree ROOT: a folder whose files may go, or C:\\ in a Wine of the test's own\n",
            stderr);
        return 2;
    }
    racine = mots[1];
    // A folder that leads to the one above it; on Windows the script that calls has laid it.
    const bool disque_vrai = racine == fs::path("C:\\");
    if (!disque_vrai) {
        fs::create_directories(racine / "Users/boucle");
        fs::create_directory_symlink("..", racine / "Users/boucle/retour");
    }
    for (const Cas& cas : kCas) essaie(cas);
    if (disque_vrai) essaie_vite();
    for (const char* trace : kTraces) fs::remove_all(racine / du_systeme(trace));
    std::printf("%zu disks, %d failures\n", std::size(kCas), echecs);
    return echecs == 0 ? 0 : 1;
}
