// Files as spreadsheets, meters, loggers and schools write them: each is understood as its writer meant it, or
// refused with the sentence that helps.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include "exchange/data_lines.hpp"
#include "exchange/data_reader.hpp"
#include "helpers.hpp"

namespace {

const std::string kDossier = VOXTAB_TESTS "/exchange/";

std::string contenu(const std::string& chemin) {
    std::ifstream fichier(chemin, std::ios::binary);
    REQUIRE_MESSAGE(fichier.good(), chemin);
    return {std::istreambuf_iterator<char>(fichier), {}};
}

// The first line that is no comment.
std::string premiere_ligne(std::string lignes) {
    if (lignes.starts_with('!')) lignes.erase(0, lignes.find("\r\n") + 2);
    return lignes.substr(0, lignes.find("\r\n"));
}

}  // namespace

TEST_CASE("files of other programs are understood, or refused with the sentence that helps") {
    std::istringstream table(contenu(kDossier + "expected.txt"));
    std::set<std::string> vus;
    int compris = 0, refuses = 0;
    for (std::string ligne; std::getline(table, ligne);) {
        if (ligne.empty() || ligne[0] == '#') continue;
        const std::size_t un = ligne.find('\t'), deux = ligne.find('\t', un + 1);
        const std::string nom = ligne.substr(0, un), dit = ligne.substr(un + 1, deux - un - 1);
        CAPTURE(nom);
        std::string refus;
        const auto donnees = lis_donnees(contenu(kDossier + "files/" + nom), refus);
        CHECK(vers_utf8(donnees ? mots_donnees(*donnees) : refus) == dit);
        CHECK(donnees.has_value() == (deux != std::string::npos));
        (donnees ? compris : refuses)++;
        vus.insert(nom);
        if (!donnees || deux == std::string::npos) continue;
        const auto lignes = lignes_de_feuille(*donnees, forme_proposee(*donnees, ""), refus);
        REQUIRE_MESSAGE(lignes.has_value(), vers_utf8(refus));
        CHECK(premiere_ligne(vers_utf8(*lignes)) == ligne.substr(deux + 1));
    }
    CHECK(compris >= 40);
    CHECK(refuses >= 15);
    for (const auto& fichier : std::filesystem::directory_iterator(kDossier + "files"))
        CHECK_MESSAGE(vus.contains(fichier.path().filename().string()), fichier.path().string());
}
