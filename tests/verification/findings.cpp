// Checks sheets as voxtab-calc --verifier --json does, any number in one process: a job a line on standard input,
// {"feuille": text} or {"fichier": path} with "options", the words of a command line; its findings on standard
// output, one a line as that command prints them, and an empty line after the last one.
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/stack.hpp"
#include "sheet/recalculation.hpp"
#include "terminal/findings_output.hpp"
#include "terminal/options.hpp"
#include "terminal/sheet_file.hpp"
#include "terminal/terminal_port.hpp"
#include "verification/check.hpp"

namespace {

std::string octets_de(const std::string& chemin) {
    std::ifstream fichier(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(fichier), {}};
}

// The sheet of a job; nothing when it is none.
std::optional<TexteFeuille> feuille_de(const nlohmann::json& tache) {
    RefusFeuille refus;
    if (!tache.contains("fichier")) return lit_feuille(tache.at("feuille").get<std::string>(), Codage::utf8, refus);
    const std::string octets = octets_de(tache.at("fichier"));
    return octets.empty() ? std::nullopt : lit_feuille(octets, devine_codage(octets), refus);
}

// False when the job can't be done.
bool verifie(const nlohmann::json& tache) {
    const LectureOptions lecture = lis_options(tache.value("options", std::vector<std::string>{}));
    const auto lue = feuille_de(tache);
    if (lecture.statut || !lue) return false;
    reinitialise_calcul();
    applique_options(lecture.options);
    verifie_feuille(lue->texte);
    std::cout << texte_constats(verification.constats, true) << '\n';
    return !verification.arretee;
}

}  // namespace

int main(int, char** argv) {
    agrandit_pile(argv);
    installe_port_terminal();
    std::string ligne;
    while (std::getline(std::cin, ligne))
        if (!verifie(nlohmann::json::parse(ligne))) {
            std::cerr << "no check: " << ligne << '\n';
            return 2;
        }
    return 0;
}
