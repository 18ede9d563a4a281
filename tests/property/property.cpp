// Random sheets from fixed seeds, each calculated several times: what must not change does not,
// what must change does it as told. Prints a digest of all outputs; exit status 1 when a sheet is
// wrong.
//   property [--feuilles N] [--graine S]     (one seed: its sheet and what came of it)
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

#include "base/codepage.hpp"
#include "platform/stack.hpp"
#include "property/changed.hpp"
#include "property/checks.hpp"
#include "property/unstable.hpp"
#include "property/words.hpp"
#include "support/program.hpp"

namespace {

constexpr int kFautesMontrees = 3;

void montre(std::uint64_t graine, const FeuilleTiree& feuille, const Defaut& defaut) {
    const Reglage& r = feuille.reglage;
    std::cout << "FAILED seed " << graine << ": " << vers_utf8(defaut) << "\nmode_nombre "
              << r.mode_nombre << ", mode_affichage " << r.mode_affichage << ", nombre_decimal "
              << r.nombre_decimal << ", unite_angle " << r.unite_angle << ", matrice_colonne "
              << r.matrice_colonne << ", stat_restreint " << r.stat_restreint << ", selstart "
              << feuille.curseur << "\n--- sheet\n"
              << vers_utf8(feuille.texte) << "\n---\n";
}

// The seeds up to `nombre`, or `seule` alone. The number of sheets that are wrong.
int essaie(int nombre, std::uint64_t seule) {
    int fautes = 0;
    const std::uint64_t debut = seule != 0 ? seule : 1;
    const std::uint64_t fin = seule != 0 ? seule : static_cast<std::uint64_t>(nombre);
    FeuilleTiree autre = tire_feuille(debut - 1);
    for (std::uint64_t graine = debut; graine <= fin && fautes < kFautesMontrees; ++graine) {
        FeuilleTiree feuille = tire_feuille(graine);
        const Defaut defaut = verifie_feuille(feuille, autre);
        if (!defaut.empty()) ++fautes;
        if (!defaut.empty() || seule != 0) montre(graine, feuille, defaut);
        autre = std::move(feuille);
    }
    return fautes;
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    const char* locale = std::setlocale(LC_ALL, "");
    int nombre = 20000;
    std::uint64_t seule = 0;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::string(argv[i]) == "--feuilles") nombre = std::atoi(argv[i + 1]);
        if (std::string(argv[i]) == "--graine") seule = std::strtoull(argv[i + 1], nullptr, 10);
    }
    installe_port_memoire();
    port.systeme.graine = graine_de_test;
    int fautes = essaie(nombre, seule);
    if (seule == 0) {
        fautes += essaie_instables(nombre / 100) + essaie_soupes(nombre);
        fautes += essaie_lignes_gardees(nombre) + essaie_corrections(std::max(nombre / 20, 2000));
    }
    std::cout << "locale " << (locale != nullptr ? locale : "refused") << '\n'
              << nombre << " sheets, " << fautes << " failed, digest " << std::hex << empreinte()
              << '\n';
    return fautes == 0 ? 0 : 1;
}
