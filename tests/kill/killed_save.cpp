// A process that saves a sheet again and again is killed at many random moments: the sheet, its
// backup and its working copy must each be one whole version, and each kill leaves at most one
// temporary file. Real files in a folder of its own.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include "documents/open_documents.hpp"
#include "platform/files.hpp"
#include "shell/events.hpp"
#include "support/program.hpp"

namespace {

namespace fs = std::filesystem;

constexpr int kMorts = 210;
constexpr int kVersions = 1'000'000;  // more than a process can save
constexpr int kAttenteMaximale =
    25'000;                         // microseconds between the start of the saves and the kill
constexpr int kDureeMaximale = 30;  // seconds; then the kills that were made count
constexpr int kMortsMinimum = 200;
constexpr std::string_view kTemporaire = ".voxtab.";

// What the kills left, and what went wrong.
struct Bilan {
    int morts = 0;
    int temporaires_feuille = 0;  // left in the sheet's folder, so far
    int temporaires_copies = 0;   // left in the working folder
    int memes = 0;                // sheet and backup of the same version: killed between the two
    int suivies = 0;              // backup of the version before
    int fautes = 0;
};

// ---- The versions of the sheet

// From 500 to 4,000 lines that all bear the version's number, and a last line that tells it.
std::string version(int n) {
    const std::string ligne = "! version " + std::to_string(n) + "\r\n";
    const int lignes = 500 + n * 7919 % 3'501;
    std::string texte;
    texte.reserve(ligne.size() * static_cast<std::size_t>(lignes) + 20);
    for (int i = 0; i < lignes; ++i) texte += ligne;
    return texte + "! fin " + std::to_string(n);
}

// Number of the version that a file holds to the last byte, or -1.
int version_de(const fs::path& chemin) {
    std::ifstream fichier(chemin, std::ios::binary);
    const std::string contenu(std::istreambuf_iterator<char>(fichier), {});
    constexpr std::string_view kDebut = "! version ";
    if (!contenu.starts_with(kDebut)) return -1;
    int n = -1;
    std::from_chars(contenu.data() + kDebut.size(), contenu.data() + contenu.size(), n);
    return n >= 0 && contenu == version(n) + "\r\n" ? n : -1;
}

// ---- The process that saves

std::string dossier_du_programme;

// Saves one version after the other, from `premiere` on; the parent hears when it begins.
[[noreturn]] void enregistre_sans_fin(const fs::path& dossier, int premiere, int tuyau) {
    programme_neuf();
    installe_fichiers_reels();
    dossier_du_programme = (dossier / "programme").string();
    port.systeme.separateur = '/';
    port.systeme.dossier_programme = [] { return dossier_du_programme; };
    memoire.ligne_commande = (dossier / "feuille.VXT").string();
    evenement_chargement();
    if (write(tuyau, "!", 1) != 1) _exit(2);
    for (int n = premiere; n < kVersions; ++n) {
        port.texte.pose_texte(version(n));
        marque_modifie();
        evenement_menu("mnuEnregistrerItem");
        if (!memoire.boites.empty()) _exit(1);
    }
    _exit(3);
}

// ---- The process that kills

// Waits until the child saves. False when it has gone before.
bool attend_debut(int tuyau) {
    char signe = 0;
    return read(tuyau, &signe, 1) == 1;
}

// Kills the child; true when it was still at work.
bool tue(pid_t enfant) {
    kill(enfant, SIGKILL);
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WIFSIGNALED(etat) && WTERMSIG(etat) == SIGKILL;
}

// One child from its start to its death, `attente` behind its first step of saving. False when it
// failed.
bool une_vie(const fs::path& dossier, int premiere, std::chrono::microseconds attente) {
    int tuyau[2];
    if (pipe(tuyau) != 0) throw std::runtime_error("no pipe");
    const pid_t enfant = fork();
    if (enfant < 0) throw std::runtime_error("no child");
    if (enfant == 0) {
        close(tuyau[0]);
        enregistre_sans_fin(dossier, premiere, tuyau[1]);
    }
    close(tuyau[1]);
    const bool commencee = attend_debut(tuyau[0]);
    if (commencee) std::this_thread::sleep_for(attente);
    close(tuyau[0]);
    return tue(enfant) && commencee;
}

int compte_temporaires(const fs::path& dossier) {
    int nombre = 0;
    for (const fs::directory_entry& entree : fs::directory_iterator(dossier))
        if (entree.path().filename().string().starts_with(kTemporaire)) ++nombre;
    return nombre;
}

void faute(Bilan& bilan, const std::string& quoi) {
    ++bilan.fautes;
    std::cout << "FAILED: kill " << bilan.morts << ": " << quoi << '\n';
}

// The three files of the sheet after a kill, `ancienne` being its version before. Answers its
// version.
int verifie_fichiers(Bilan& bilan, const fs::path& dossier, int ancienne) {
    const int feuille = version_de(dossier / "feuille.VXT");
    const int sauvegarde = version_de(dossier / "feuille.bak");
    if (feuille < ancienne) faute(bilan, "the sheet is no whole version of this run");
    if (sauvegarde != feuille && sauvegarde != feuille - 1) faute(bilan, "the backup is not whole");
    (sauvegarde == feuille ? bilan.memes : bilan.suivies) += 1;
    for (const auto& entree : fs::directory_iterator(dossier / "programme/travail")) {
        const std::string nom = entree.path().filename().string();
        const int copie = nom.starts_with(kTemporaire) ? feuille : version_de(entree.path());
        if (copie != feuille && copie != feuille + 1) faute(bilan, "the working copy is not whole");
    }
    return feuille;
}

// A kill leaves one temporary file at most, in one of the two folders.
void verifie_temporaires(Bilan& bilan, const fs::path& dossier) {
    const int feuille = compte_temporaires(dossier);
    const int copies = compte_temporaires(dossier / "programme/travail");
    const int neufs = feuille - bilan.temporaires_feuille + copies - bilan.temporaires_copies;
    if (neufs < 0 || neufs > 1) faute(bilan, std::to_string(neufs) + " new temporary files");
    bilan.temporaires_feuille = feuille;
    bilan.temporaires_copies = copies;
}

Bilan tue_souvent(const fs::path& dossier) {
    Bilan bilan;
    std::mt19937 hasard(20260101);
    std::uniform_int_distribution<int> attente(0, kAttenteMaximale);
    const auto fin = std::chrono::steady_clock::now() + std::chrono::seconds(kDureeMaximale);
    int feuille = 0;
    while (bilan.morts < kMorts && std::chrono::steady_clock::now() < fin) {
        ++bilan.morts;
        if (!une_vie(dossier, feuille + 1, std::chrono::microseconds(attente(hasard))))
            faute(bilan, "the child that saves has failed");
        feuille = verifie_fichiers(bilan, dossier, feuille);
        verifie_temporaires(bilan, dossier);
        if (bilan.fautes > 0) break;
    }
    if (bilan.morts < kMortsMinimum && bilan.fautes == 0) faute(bilan, "too few kills in the time");
    const bool au_milieu = bilan.temporaires_feuille > 0 && bilan.memes > 0 && bilan.suivies > 0;
    if (!au_milieu && bilan.fautes == 0) faute(bilan, "no kill was in the middle of a save");
    return bilan;
}

// A regular end of the program takes what the kills left in the working folder.
void verifie_fin_reguliere(Bilan& bilan, const fs::path& dossier) {
    programme_neuf();
    installe_fichiers_reels();
    dossier_du_programme = (dossier / "programme").string();
    port.systeme.separateur = '/';
    port.systeme.dossier_programme = [] { return dossier_du_programme; };
    evenement_chargement();
    evenement_menu("mnuQuitterItem");
    if (!fs::is_empty(dossier / "programme/travail"))
        faute(bilan, "the working folder isn't empty");
}

}  // namespace

// Prints what was done; exit status 1 when something was not whole.
int main() {
    std::string modele = (fs::temp_directory_path() / "voxtab-kill-XXXXXX").string();
    if (mkdtemp(modele.data()) == nullptr) return 2;
    const fs::path dossier = modele;
    fs::create_directory(dossier / "programme");
    std::ofstream(dossier / "feuille.VXT", std::ios::binary) << version(0) << "\r\n";
    Bilan bilan;
    try {
        bilan = tue_souvent(dossier);
        verifie_fin_reguliere(bilan, dossier);
    } catch (const std::exception& e) {
        faute(bilan, e.what());
    }
    fs::remove_all(dossier);
    std::cout << bilan.morts << " kills; backup one version behind " << bilan.suivies
              << " times, of the same version " << bilan.memes
              << " times; temporary files left: " << bilan.temporaires_feuille
              << " beside the sheet, " << bilan.temporaires_copies << " in the working folder\n";
    return bilan.fautes > 0 ? 1 : 0;
}
