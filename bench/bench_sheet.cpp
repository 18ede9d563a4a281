// Runs every comparison in one process and prints the table. Exit status 1 when something that was
// to be measured failed, 3 with --strict when a wanted value is missed.
#include <CLI/CLI.hpp>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <thread>

#include "cases.hpp"
#include "report.hpp"

namespace {

// Name of the processor, as the system tells it.
std::string processeur() {
    std::ifstream informations("/proc/cpuinfo");
    for (std::string ligne; std::getline(informations, ligne);)
        if (ligne.starts_with("model name")) return ligne.substr(ligne.find(':') + 2);
    return "unknown";
}

void affiche_machine(int repetitions) {
    std::cout << "Sheet calculation, side by side\n"
              << "compiler   " << VOXTAB_COMPILER << '\n'
              << "build      " << VOXTAB_BUILD << '\n'
              << "processor  " << processeur() << ", " << std::thread::hardware_concurrency()
              << " usable\n"
              << "times      processor time, medians of " << repetitions
              << " repetitions in turn\n";
}

// The parts of the table, by the names of --only.
const std::map<std::string, std::function<void(int)>> kParties = {
    {"1-mixed", compare_feuille_mixte},
    {"2-functions", compare_feuille_fonctions},
    {"3-doubling", mesure_doublement},
    {"4-memory", [](int) { mesure_memoire_passe(); }},
    {"5-area", compare_aires},
    {"6-matrices", mesure_matrices},
    {"7-statistics", mesure_statistiques},
    {"8-table", mesure_tabulation},
    {"9-editing", mesure_edition},
    {"sound", mesure_son},
    {"many", mesure_feuilles},
    {"watched", mesure_surveillance},
};

void mesure(const std::string& seulement, int repetitions) {
    affiche_machine(repetitions);
    for (const auto& [nom, partie] : kParties)
        if (seulement.empty() || seulement == nom) partie(repetitions);
    affiche_bilan();
}

}  // namespace

int main(int nombre, char** arguments) {
    CLI::App options("Measures the sheet calculation beside muParser, the Luas and bc, and its growth.");
    int repetitions = 9;
    std::string seulement;
    bool strict = false;
    options.add_option("--repetitions", repetitions, "rounds of each case")
        ->check(CLI::Range(1, 999));
    options.add_option("--only", seulement, "one part of the table")
        ->check(CLI::IsMember(kParties));
    options.add_flag("--strict", strict, "exit status 3 when a wanted value is missed");
    CLI11_PARSE(options, nombre, arguments);
    try {
        mesure(seulement, repetitions);
    } catch (const std::exception& e) {
        std::cerr << "bench_sheet: " << e.what() << '\n';
        return 1;
    }
    return strict && buts_manques() > 0 ? 3 : 0;
}
