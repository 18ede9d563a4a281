// Many sheets on one core and on all: voxtab-calc, which is built beside this program, calculates temporary sheets, by
// the clock.
#include <fcntl.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "cases.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace {

namespace fs = std::filesystem;

constexpr int kFeuilles = 10000;
constexpr int kLignes = 100;

// A folder that goes with its handle.
struct Dossier {
    fs::path chemin = fs::temp_directory_path() / ("voxtab-bench-" + std::to_string(getpid()));
    Dossier() { fs::create_directory(chemin); }
    ~Dossier() {
        std::error_code sans_dire;
        fs::remove_all(chemin, sans_dire);
    }
    Dossier(const Dossier&) = delete;
    Dossier& operator=(const Dossier&) = delete;
};

// A sheet that gives every variable a value and then calculates with them.
std::string feuille(std::mt19937& hasard) {
    const auto nombre = [&](unsigned fin) { return std::to_string(hasard() % fin); };
    const auto lettre = [&] { return std::string(1, static_cast<char>('A' + hasard() % 26)); };
    std::string texte;
    for (int i = 0; i < 26; ++i) (texte += static_cast<char>('A' + i)) += "=" + std::to_string(i + 1) + "\r\n";
    for (int i = 26; i < kLignes; ++i) {
        const std::string a = lettre(), b = lettre();
        const std::string formes[] = {a + "=" + nombre(400), a + "/2+" + nombre(99) + ".5", a + "+" + b + "*3",
                                      "SQRT(" + nombre(900) + ")+SIN(" + nombre(90) + ")"};
        texte += formes[hasard() % 4] + "\r\n";
    }
    return texte;
}

// The words of the command, with the sheets that are written into the folder.
std::vector<std::string> prepare(const Dossier& dossier) {
    std::mt19937 hasard(20240229);
    std::vector<std::string> mots = {(fs::read_symlink("/proc/self/exe").parent_path() / "voxtab-calc").string()};
    if (!fs::exists(mots[0])) throw std::runtime_error("voxtab-calc is not built");
    for (int i = 0; i < kFeuilles; ++i) {
        mots.push_back((dossier.chemin / (std::to_string(i) + ".VXT")).string());
        std::ofstream(mots.back(), std::ios::binary) << feuille(hasard);
    }
    return mots;
}

// What the child does: keeps to one core where it is told so, and becomes voxtab-calc.
[[noreturn]] void devient(std::vector<std::string>& mots, bool un_coeur) {
    std::vector<char*> arguments;
    for (std::string& mot : mots) arguments.push_back(mot.data());
    arguments.push_back(nullptr);
    cpu_set_t coeurs;
    CPU_ZERO(&coeurs);
    CPU_SET(static_cast<std::size_t>(sched_getcpu()), &coeurs);
    if (un_coeur && sched_setaffinity(0, sizeof coeurs, &coeurs) != 0) _exit(126);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execv(arguments[0], arguments.data());
    _exit(127);
}

// Seconds of the clock.
double temps(std::vector<std::string>& mots, bool un_coeur) {
    const auto debut = std::chrono::steady_clock::now();
    const pid_t enfant = fork();
    if (enfant < 0) throw std::runtime_error("no child process");
    if (enfant == 0) devient(mots, un_coeur);
    int statut = 0;
    waitpid(enfant, &statut, 0);
    if (statut != 0) throw std::runtime_error("voxtab-calc failed on many sheets");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
}

}  // namespace

void mesure_feuilles(int repetitions) {
    titre("10,000 sheets of 100 lines in voxtab-calc, by the clock; ratio is on all cores / on one");
    if (std::thread::hardware_concurrency() < 2) return note("there is one core alone: nothing to compare");
    const Dossier dossier;
    std::vector<std::string> mots = prepare(dossier);
    const std::vector<double> t = medianes({[&] { return temps(mots, false); }, [&] { return temps(mots, true); }}, repetitions);
    affiche({"two cores or more, beside one", duree(t[0]), duree(t[1]), t[0] / t[1], "at most 0.6", t[0] <= 0.6 * t[1]});
    note("the clock counts what other programs take of the cores: on an idle machine alone it tells something");
}
