// The check of the sheet leaves nothing behind, and finds the same before and after a calculation.
#include "verification/check.hpp"

#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "shell/calculation.hpp"
#include "state/context.hpp"
#include "support/program.hpp"
#include "support/snapshot.hpp"
#include "unit/helpers.hpp"

namespace {

const std::string kFeuille = cp(
    "A=3\r\nB=A*2\r\n2(A+1)\r\nDEFMA\r\n1,2\r\n3,4\r\nFIN\r\nMB=MA*MA\r\nSTATX(12,5;14,5)\r\nALEA\r\n"
    "INCX(0,1,3)\r\nX^2+A\r\nDEFFON=2*X\r\nFON(3)\r\n1/0\r\n1,5+2\r\n-2^2");

// The findings, each by its kind, line and column.
Textes trouves() {
    Textes sortie;
    for (const Constat& c : verification.constats)
        sortie.push_back(std::string(nom_constat(c.genre)) + " " + std::to_string(c.ligne) + " " + std::to_string(c.colonne));
    return sortie;
}

}  // namespace

TEST_CASE("check: nothing is changed and nothing is heard") {
    port.texte.pose_texte(std::string(kFeuille));
    recalcul();
    memoire.messages.clear();
    memoire.boites.clear();
    const Instantane avant = prend_instantane();
    const auto generateur = moteur.generateur;
    verifie_feuille(port.texte.texte());
    CHECK(differences(avant, prend_instantane()) == Textes{});
    CHECK((moteur.generateur == generateur));
    CHECK(messages().empty());
    CHECK(boites().empty());
}

TEST_CASE("check: below a line in error the lines are judged too") {
    verifie_feuille(kFeuille);
    CHECK(trouves() == Textes{"signe_manquant 3 2", "effectif 9 9", "virgule_decimale 16 2", "moins_puissance 17 1"});
    CHECK(verification.lignes_en_erreur == 1);
}

TEST_CASE("check: a sheet that was just calculated gives the same findings") {
    const std::string sans_bloc = cp("A=3\r\n2(A+1)\r\n12 000/2\r\n6:2\r\n-2^2\r\n5!");
    verifie_feuille(sans_bloc);
    const Textes avant = trouves();
    CHECK(avant.size() == 5);
    port.texte.pose_texte(std::string(sans_bloc));
    recalcul();
    verifie_feuille(port.texte.texte());
    CHECK(trouves() == avant);
}

TEST_CASE("check: a watched pass writes the same sheet and finds what is grave in what it has calculated") {
    port.texte.pose_texte(std::string(kFeuille));
    recalcul();
    const std::string seule = port.texte.texte();
    port.texte.pose_texte(std::string(kFeuille));
    commence_surveillance();
    recalcul();
    finit_surveillance();
    CHECK(trouves() == Textes{"signe_manquant 3 2"});
    std::string regardee = port.texte.texte();
    // The random number is another one.
    const auto sans_hasard = [](std::string texte) {
        const std::size_t debut = texte.find("ALEA");
        return texte.erase(debut, texte.find("\r\n", debut) - debut);
    };
    CHECK(vers_utf8(sans_hasard(regardee)) == vers_utf8(sans_hasard(seule)));
    CHECK(moteur.releve == nullptr);
}
