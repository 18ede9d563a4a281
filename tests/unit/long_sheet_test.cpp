// A sheet of more lines than a calculation can number: it is looked at and moved in all the same, and no command
// answers with the bare number of a failure. What nobody can listen to whole is begun, and what is left is counted.
#include <doctest/doctest.h>

#include <string>
#include <string_view>

#include "editing/words.hpp"
#include "helpers.hpp"
#include "support/program.hpp"

namespace {

constexpr std::size_t kLignes = 33000;

// 33,000 lines of five bytes; the line 32,900 is "X+1".
std::string longue_feuille() {
    std::string texte;
    for (std::size_t i = 1; i < kLignes; ++i) texte += i == 32900 ? "X+1\r\n" : "2+1\r\n";
    return texte + "3+1";
}

constexpr std::size_t debut_de(std::size_t ligne) { return (ligne - 1) * 5; }

// A fresh program with the long sheet and the cursor on line 32,900.
void neuf() {
    programme_neuf();
    batit_caracteres();
    pose_feuille(longue_feuille(), debut_de(32900));
}

}  // namespace

TEST_CASE("long sheet: no command shows the number of a failure of its own below line 32,767") {
    for (const LigneCommande& ligne : lignes_menu()) {
        CAPTURE(ligne.nom);
        neuf();
        memoire.reponses.assign(3, "3");
        execute_commande(ligne.nom);
        for (const std::string& boite : boites())
            if (boite != "6 6 sur recalcul") CHECK(!boite.starts_with("6"));
    }
}

TEST_CASE("long sheet: the cursor's line is told and reached by its number") {
    neuf();
    execute_commande("mnuXYItem");
    memoire.reponses.assign({"32950", "99999"});
    execute_commande("mnuNumeroLigneItem");
    CHECK(memoire.sel_start == debut_de(32950) - 1);
    execute_commande("mnuNumeroLigneItem");
    CHECK(memoire.sel_start == debut_de(kLignes) - 1);
    CHECK(messages() == Textes{"colonne 1 ligne 32900", "2+1", "3+1"});
    CHECK(boites().empty());
}

TEST_CASE("long sheet: words are walked below line 32,767") {
    neuf();
    execute_commande("chainedroite");
    execute_commande("chaineGAUCHE");
    CHECK(messages() == Textes{"1", "X"});
}

TEST_CASE("long sheet: what needs a calculation says why there is none") {
    neuf();
    memoire.reponses.assign({"0,1"});
    for (const std::string_view nom : {"mnuDireLigneItem", "mnuVerifierItem", "mnuConstatSuivantItem", "mnuEtudierItem"})
        execute_commande(nom);
    CHECK(messages() == Textes{"feuille non lue", "la feuille n'est pas vérifiée", " la feuille n'est pas vérifiée  ",
                               "la fonction est au-delà de la ligne 32767"});
}

TEST_CASE("long line: the fault is said by its first 100 characters") {
    std::string ligne = "1";
    for (int i = 0; i < 20000; ++i) ligne += "+1";
    calcule_neuf(ligne);
    memoire.messages.clear();
    execute_commande("mnuAllerFauteItem");
    std::string debut = "1";
    for (int i = 0; i < 49; ++i) debut += "+1";
    CHECK(messages() == Textes{"ligne 1, colonne 1 : " + debut + "+, et 32666 autres caractères, 6 6 sur p_lis_symbole"});
}

TEST_CASE("long selection: the first results are spelt and the others counted") {
    std::string texte;
    for (int i = 0; i < 200; ++i) texte += "12345\r\n";
    calcule_neuf(texte);
    memoire.messages.clear();
    port.texte.pose_selection(0, memoire.texte.size());
    execute_commande("mnuEpelerItem");
    const std::string dit = messages().at(0);
    CHECK(dit.starts_with("ligne 1 : 1 2, 3 4 5 ; ligne 2 : 1 2, 3 4 5 ; "));
    CHECK(dit.ends_with(" ; ligne 22 : 1 2, 3 4 5, et 178 autres résultats"));
}
