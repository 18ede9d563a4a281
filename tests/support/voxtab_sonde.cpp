// Development probe: one JSON job a line on standard input, one JSON result a line on standard
// output, at once. Exit status 2 when a job could not be run.
#include <cstdio>
#include <iostream>
#include <string>

#include <nlohmann/json.hpp>

#include "base/memory_reserve.hpp"
#include "platform/console.hpp"
#include "platform/stack.hpp"
#include "support/job.hpp"
#include "terminal/last_handler.hpp"

int main(int argc, char** argv) {
    finit_sans_memoire(stdout, "{\"erreur\":\"mémoire insuffisante\"}\n");
    agrandit_pile(argv);
    installe_reserve();
    prepare_console(argc, argv);
    std::ios::sync_with_stdio(false);
    int statut = 0;
    std::string ligne;
    while (std::getline(std::cin, ligne)) {
        if (ligne.find_first_not_of(" \t\r") == std::string::npos) continue;
        nlohmann::json resultat;
        const nlohmann::json tache = nlohmann::json::parse(ligne, nullptr, false);
        if (tache.is_discarded())
            resultat = {{"erreur", "ce n'est pas du JSON"}};
        else
            resultat = traite_tache(tache);
        if (resultat.contains("erreur")) statut = 2;
        std::cout << resultat.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)
                  << std::endl;
        if (!std::cout) return 2;
    }
    return statut;
}
