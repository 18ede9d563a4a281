// Runs muParser and bc. Holds no state.
#include "rivals.hpp"

#include <fcntl.h>
#include <muParser.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <stdexcept>

#include "measure.hpp"

namespace {

// A temporary file that goes with its handle.
using Fichier = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

Fichier fichier_temporaire(const std::string& contenu) {
    Fichier fichier(std::tmpfile(), std::fclose);
    if (!fichier ||
        std::fwrite(contenu.data(), 1, contenu.size(), fichier.get()) != contenu.size() ||
        std::fflush(fichier.get()) != 0)
        throw std::runtime_error("no temporary file");
    std::rewind(fichier.get());
    return fichier;
}

std::string contenu(std::FILE* fichier) {
    std::rewind(fichier);
    std::string texte;
    std::array<char, 65536> tampon;
    for (std::size_t n; (n = std::fread(tampon.data(), 1, tampon.size(), fichier)) > 0;)
        texte.append(tampon.data(), n);
    return texte;
}

// Starts `bc -l` between two files and waits for its end. Answers its processor seconds.
double execute_bc(std::FILE* entree, std::FILE* sortie, std::FILE* plaintes) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(entree), 0);
    posix_spawn_file_actions_adddup2(&actions, fileno(sortie), 1);
    posix_spawn_file_actions_adddup2(&actions, fileno(plaintes), 2);
    char nom[] = "bc", bibliotheque[] = "-l";
    char* arguments[] = {nom, bibliotheque, nullptr};
    pid_t enfant = 0;
    const int refus = posix_spawnp(&enfant, nom, &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (refus != 0) throw std::runtime_error("bc can't be started");
    int statut = 0;
    rusage usage{};
    wait4(enfant, &statut, 0, &usage);
    if (statut != 0) throw std::runtime_error("bc failed");
    const auto secondes = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    return secondes(usage.ru_utime) + secondes(usage.ru_stime);
}

// Runs bc on a text; it must not complain.
double lance_bc(const std::string& entree, std::FILE* sortie) {
    const Fichier formules = fichier_temporaire(entree), plaintes = fichier_temporaire("");
    const double secondes = execute_bc(formules.get(), sortie, plaintes.get());
    const std::string mots = contenu(plaintes.get());
    if (!mots.empty()) throw std::runtime_error("bc: " + mots.substr(0, mots.find('\n')));
    return secondes;
}

}  // namespace

double temps_muparser(const std::vector<std::string>& formules, std::vector<double>& valeurs) {
    std::array<double, 26> variables{};
    mu::Parser analyseur;
    for (std::size_t i = 0; i < variables.size(); ++i)
        analyseur.DefineVar(std::string(1, static_cast<char>('A' + i)), &variables[i]);
    analyseur.DefineConst("rad", std::numbers::pi / 180);
    valeurs.assign(formules.size(), 0);
    const double debut = temps_processeur();
    for (std::size_t i = 0; i < formules.size(); ++i) {
        analyseur.SetExpr(formules[i]);
        valeurs[i] = analyseur.Eval();
    }
    return temps_processeur() - debut;
}

double temps_aire_muparser(const std::string& formule, int nombre, Bouts bouts, double& aire) {
    double x = 0, somme = 0;
    mu::Parser analyseur;
    analyseur.DefineVar("X", &x);
    analyseur.SetExpr(formule);
    double b = analyseur.Eval();  // the first evaluation makes the bytecode
    const double h = 1.0 / nombre;
    const double debut = temps_processeur();
    for (double k = 1; k <= nombre; k += 1) {
        x = (k - 1) * h;
        const double a = bouts == Bouts::deux_fois ? analyseur.Eval() : b;
        x = h * k;
        b = analyseur.Eval();
        somme += (a + b) / 2 * h;
    }
    const double secondes = temps_processeur() - debut;
    aire = somme;
    return secondes;
}

bool bc_present() { return std::system("command -v bc >/dev/null 2>&1") == 0; }

double temps_bc(const std::string& entree) {
    const Fichier rien(std::fopen("/dev/null", "w"), std::fclose);
    return lance_bc(entree, rien.get());
}

std::string sortie_bc(const std::string& entree) {
    const Fichier sortie = fichier_temporaire("");
    lance_bc(entree, sortie.get());
    return contenu(sortie.get());
}
