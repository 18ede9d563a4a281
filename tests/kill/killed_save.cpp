// A process that saves a sheet again and again is killed at many random moments: the sheet, its
// backup and its working copy must each be one whole version, each kill leaves at most one
// temporary file, and after the next save there is none. Then several processes save one file at
// once. Real files in a folder of its own.   killed_save [KILLS]
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
#include <vector>

#include "documents/open_documents.hpp"
#include "platform/files.hpp"
#include "shell/events.hpp"
#include "support/program.hpp"

namespace {

namespace fs = std::filesystem;

constexpr int kVersions = 1'000'000;  // more than a process can save
constexpr int kAttenteMaximale =
    25'000;  // microseconds between the start of the saves and the kill
constexpr std::string_view kTemporaire = ".voxtab.";

// What the kills left, and what went wrong.
struct Bilan {
    int morts = 0;
    int temporaires_feuille = 0;  // left in the sheet's folder by all kills
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

// Saves the versions from `premiere` to `derniere`, one after the other; the parent hears when it
// begins. Its exit status is 3 when all are saved.
[[noreturn]] void enregistre(const fs::path& dossier, int premiere, int derniere, int tuyau) {
    programme_neuf();
    installe_fichiers_reels();
    dossier_du_programme = (dossier / "programme").string();
    port.systeme.separateur = '/';
    port.systeme.dossier_programme = [] { return dossier_du_programme; };
    memoire.ligne_commande = (dossier / "feuille.VXT").string();
    evenement_chargement();
    if (write(tuyau, "!", 1) != 1) _exit(2);
    for (int n = premiere; n <= derniere; ++n) {
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

// One child from its start to its death, `attente` after its first step of saving. False when it
// failed.
bool une_vie(const fs::path& dossier, int premiere, std::chrono::microseconds attente) {
    int tuyau[2];
    if (pipe(tuyau) != 0) throw std::runtime_error("no pipe");
    const pid_t enfant = fork();
    if (enfant < 0) throw std::runtime_error("no child");
    if (enfant == 0) {
        close(tuyau[0]);
        enregistre(dossier, premiere, kVersions, tuyau[1]);
    }
    close(tuyau[1]);
    const bool commencee = attend_debut(tuyau[0]);
    if (commencee) std::this_thread::sleep_for(attente);
    close(tuyau[0]);
    return tue(enfant) && commencee;
}

// A child that saves one version and ends by itself. False when it failed.
bool enregistre_une_fois(const fs::path& dossier, int n) {
    int tuyau[2];
    if (pipe(tuyau) != 0) throw std::runtime_error("no pipe");
    const pid_t enfant = fork();
    if (enfant < 0) throw std::runtime_error("no child");
    if (enfant == 0) enregistre(dossier, n, n, tuyau[1]);
    close(tuyau[0]);
    close(tuyau[1]);
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WIFEXITED(etat) && WEXITSTATUS(etat) == 3;
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
    if (feuille + copies > 1) faute(bilan, std::to_string(feuille + copies) + " temporary files");
    bilan.temporaires_feuille += feuille;
    bilan.temporaires_copies += copies;
}

// The next save leaves nothing of the one that was killed. Answers the version saved.
int verifie_suivant(Bilan& bilan, const fs::path& dossier, int version_suivante) {
    if (!enregistre_une_fois(dossier, version_suivante)) faute(bilan, "the next save has failed");
    const int restes =
        compte_temporaires(dossier) + compte_temporaires(dossier / "programme/travail");
    if (restes != 0) faute(bilan, std::to_string(restes) + " temporary files after the next save");
    return verifie_fichiers(bilan, dossier, version_suivante);
}

Bilan tue_souvent(const fs::path& dossier, int morts) {
    Bilan bilan;
    std::mt19937 hasard(20260101);
    std::uniform_int_distribution<int> attente(0, kAttenteMaximale);
    int feuille = 0;
    while (bilan.morts < morts) {
        ++bilan.morts;
        if (!une_vie(dossier, feuille + 1, std::chrono::microseconds(attente(hasard))))
            faute(bilan, "the child that saves has failed");
        feuille = verifie_fichiers(bilan, dossier, feuille);
        verifie_temporaires(bilan, dossier);
        feuille = verifie_suivant(bilan, dossier, feuille + 1);
        if (bilan.fautes > 0) break;
    }
    const bool au_milieu = bilan.temporaires_feuille > 0 && bilan.temporaires_copies > 0 &&
                           bilan.memes > 0 && bilan.suivies > 0;
    if (!au_milieu && bilan.fautes == 0) faute(bilan, "no kill was in the middle of a save");
    return bilan;
}

// ---- Several programs at once

constexpr int kProgrammes = 6;  // more than have a place of their own beside the file
constexpr int kEnregistrements = 150;

// A whole file of one program: its letter, as often as its length says.
bool entier(const std::string& contenu) {
    return !contenu.empty() && contenu.size() >= 10'000 &&
           contenu ==
               std::string(10'000 + 1'000 * static_cast<std::size_t>(contenu[0] - 'a'), contenu[0]);
}

// Saves its own content again and again; status 0 when every save went well.
[[noreturn]] void remplace_souvent(const std::string& chemin, int lettre) {
    const std::string contenu(10'000 + 1'000 * static_cast<std::size_t>(lettre),
                              static_cast<char>('a' + lettre));
    for (int n = 0; n < kEnregistrements; ++n)
        if (remplace_fichier(chemin, contenu) != 0) _exit(1);
    _exit(0);
}

// They save one file at once: it is whole whenever it is read, and no save fails.
void verifie_ensemble(Bilan& bilan, const fs::path& dossier) {
    const fs::path seul = dossier / "ensemble";
    fs::create_directory(seul);
    const std::string chemin = (seul / "feuille.VXT").string();
    if (remplace_fichier(chemin, std::string(10'000, 'a')) != 0) faute(bilan, "no first save");
    std::vector<pid_t> enfants;
    for (int lettre = 0; lettre < kProgrammes; ++lettre) {
        const pid_t enfant = fork();
        if (enfant < 0) throw std::runtime_error("no child");
        if (enfant == 0) remplace_souvent(chemin, lettre);
        enfants.push_back(enfant);
    }
    for (const pid_t enfant : enfants) {
        int etat = 0;
        while (waitpid(enfant, &etat, WNOHANG) == 0) {
            std::string contenu;
            if (lit_fichier(chemin, contenu) != 0 || !entier(contenu))
                faute(bilan, "mixed contents");
        }
        if (!WIFEXITED(etat) || WEXITSTATUS(etat) != 0) faute(bilan, "a save beside others failed");
    }
    if (compte_temporaires(seul) != 0) faute(bilan, "saves at once have left a file");
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
int main(int argc, char** argv) {
    std::string modele = (fs::temp_directory_path() / "voxtab-kill-XXXXXX").string();
    if (mkdtemp(modele.data()) == nullptr) return 2;
    const fs::path dossier = modele;
    fs::create_directory(dossier / "programme");
    std::ofstream(dossier / "feuille.VXT", std::ios::binary) << version(0) << "\r\n";
    Bilan bilan;
    try {
        bilan = tue_souvent(dossier, argc > 1 ? std::atoi(argv[1]) : 200);
        verifie_fin_reguliere(bilan, dossier);
        verifie_ensemble(bilan, dossier);
    } catch (const std::exception& e) {
        faute(bilan, e.what());
    }
    fs::remove_all(dossier);
    std::cout << bilan.morts << " kills; backup one version behind " << bilan.suivies
              << " times, of the same version " << bilan.memes
              << " times; temporary files left until the next save: " << bilan.temporaires_feuille
              << " beside the sheet, " << bilan.temporaires_copies << " in the working folder\n";
    return bilan.fautes > 0 ? 1 : 0;
}
