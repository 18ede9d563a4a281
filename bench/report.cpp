// Prints the table in columns of fixed width, one line a row.
#include "report.hpp"

#include <cstddef>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <vector>

namespace {

int buts = 0;                      // rows with a wanted value
std::vector<std::string> manques;  // those that missed it

}  // namespace

std::string decimal(double x, int decimales) {
    std::ostringstream texte;
    texte << std::fixed << std::setprecision(decimales) << x;
    return texte.str();
}

std::string duree(double secondes) {
    const double micro = secondes * 1e6;
    if (micro < 1000) return decimal(micro, micro < 10 ? 3 : 1) + " us";
    if (micro < 1e6) return decimal(micro / 1000, 2) + " ms";
    return decimal(secondes, 2) + " s";
}

std::string milliers(int n) {
    std::string texte = std::to_string(n);
    for (std::size_t i = texte.size(); i > 3; i -= 3) texte.insert(i - 3, ",");
    return texte;
}

void titre(const std::string& texte) {
    std::cout << '\n'
              << texte << '\n'
              << std::left << std::setw(58) << "  what" << std::right << std::setw(11) << "here"
              << std::setw(12) << "beside" << std::setw(9) << "ratio"
              << "  wanted\n";
}

void note(const std::string& texte) { std::cout << "    (" << texte << ")\n"; }

void affiche(const Rangee& r) {
    std::cout << "  " << std::left << std::setw(56) << r.quoi << std::right << std::setw(11)
              << r.ici << std::setw(12) << r.autre << std::setw(9)
              << (r.rapport > 0 ? decimal(r.rapport, 2) : "");
    if (!r.voulu.empty()) {
        ++buts;
        if (!r.tenu) manques.push_back(r.quoi);
        std::cout << "  " << r.voulu << (r.tenu ? ": yes" : ": NO");
    }
    std::cout << std::endl;
}

int buts_manques() { return static_cast<int>(manques.size()); }

void affiche_bilan() {
    std::cout << "\n" << buts - buts_manques() << " of " << buts << " wanted values hold.\n";
    for (const std::string& quoi : manques) std::cout << "  missed: " << quoi << '\n';
}
