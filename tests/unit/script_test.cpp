// The interpreter of scripts: what makes a step fail, and what the failure says. That correct steps
// pass is shown by the scripts of tests/program.
#include "support/script.hpp"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace {

// The failures of a script, one a line: "line: step | expected | obtained".
std::vector<std::string> echecs(const std::string& texte) {
    std::vector<std::string> sortie;
    for (const EchecEtape& e : execute_script(texte))
        sortie.push_back(std::to_string(e.ligne) + ": " + e.etape + " | " + e.attendu + " | " +
                         e.obtenu);
    return sortie;
}

using Echecs = std::vector<std::string>;

const std::string kCalcul = "démarre\ntape \"1+1\"\ntouche Alt+C\n";

}  // namespace

TEST_CASE("script: a correct one has no failure") {
    CHECK(echecs("# comment\n\n  démarre\r\nvoit texte \"\"\r\n").empty());
    CHECK(echecs(kCalcul + "entend message \"1+1 = 2\"").empty());
}

TEST_CASE("script: a look that finds something else says both") {
    CHECK(echecs("démarre\nvoit texte \"A\"\n") == Echecs{"2: voit texte \"A\" | \"A\" | \"\""});
    CHECK(echecs("démarre\nvoit curseur 3") == Echecs{"2: voit curseur 3 | 3 0 | 0 0"});
    CHECK(echecs("démarre\nvoit CmdVoxtab visible") ==
          Echecs{"2: voit CmdVoxtab visible | visible | caché actif décoché"});
    CHECK(echecs("voit absent \"C:\\VOXTAB\"") ==
          Echecs{"1: voit absent \"C:\\VOXTAB\" | absent | présent"});
    CHECK(echecs("démarre\nvoit récent 1 \"x\"").size() == 1);
    CHECK(echecs("démarre\nvoit aide oui").size() == 1);
    CHECK(echecs("démarre\nvoit valeur A 0").size() == 1);
    CHECK(echecs("démarre\nvoit fichier \"C:\\x\" \"\"").size() == 1);
}

TEST_CASE("script: what was heard must be told before the next action and at the end") {
    CHECK(echecs(kCalcul + "touche Gauche\nvoit document 1") ==
          Echecs{"4: touche Gauche | entend rien | message \"1+1 = 2\""});
    CHECK(echecs(kCalcul + "voit document 1") ==
          Echecs{"4: la fin du script | entend rien | message \"1+1 = 2\""});
    CHECK(echecs(kCalcul + "entend rien") ==
          Echecs{"4: entend rien | entend rien | message \"1+1 = 2\""});
}

TEST_CASE("script: something else heard, and nothing heard") {
    CHECK(echecs(kCalcul + "entend bip") ==
          Echecs{"4: entend bip | bip | message \"1+1 = 2\"",
                 "4: la fin du script | entend rien | message \"1+1 = 2\""});
    CHECK(echecs("démarre\nentend message \"a\"") ==
          Echecs{"2: entend message \"a\" | message \"a\" | rien"});
}

TEST_CASE("script: after something that was not told the story goes on behind it") {
    const std::string deux = kCalcul + "entend message \"1+1 = 2\"\nrépond \"zzz\"\ntouche F3\n";
    CHECK(echecs(deux + "entend saisie \"Recherche\"\nentend message \"introuvable\"") ==
          Echecs{"8: entend message \"introuvable\" | message \"introuvable\" | bip, message "
                 "\"introuvable\""});
}

TEST_CASE("script: a line that is no step") {
    for (const char* ligne : {"danse",
                              "voit",
                              "voit rien",
                              "entend",
                              "entend voix",
                              "tape",
                              "tape x",
                              "démarre démarre",
                              "fichier \"C:\\x\"",
                              "curseur x",
                              "répond peut-être",
                              "échec 0",
                              "touche Ctrl+",
                              "touche Moi+A",
                              "touche AB",
                              "\"x\"",
                              "tape \"x",
                              "tape \"{256}\"",
                              "tape \"x\"y",
                              "tape \"\u4E2D\"",
                              "voit CmdVoxtab",
                              "voit CmdVoxtab grand",
                              "voit ligne_ini 23 \"\"",
                              "choisit mnuRien",
                              "choisit mnuOuvrirSousMenuItem 16",
                              "clique txt",
                              "clique CmdVoxtab",
                              "choisit mnuOuvrirSousMenuItem 1",
                              "démarre",
                              "supprime \"C:\\rien\"",
                              "touche Ctrl+Gauche"}) {
        CAPTURE(ligne);
        CHECK(echecs("démarre\nvoit document 1\n" + std::string(ligne)).size() == 1);
    }
}

TEST_CASE("script: nothing can be done before the start and after the end") {
    for (const char* ligne : {"touche A", "tape \"a\"", "choisit mnuXYItem", "clique CmdQuitter",
                              "ferme", "curseur 0"}) {
        CAPTURE(ligne);
        CHECK(echecs("voit fermé non\n" + std::string(ligne)).size() == 1);
        CHECK(echecs("démarre\nferme\nignore\nvoit fermé oui\n" + std::string(ligne)).size() == 1);
    }
}

TEST_CASE("script: one that looks at nothing fails") {
    CHECK(echecs("démarre\n").size() == 1);
    CHECK(echecs("").size() == 1);
    CHECK(echecs("démarre\nignore").size() == 1);
}
