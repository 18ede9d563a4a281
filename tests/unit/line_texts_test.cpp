// The texts of the lines of a sheet: bounds, parts of the sheet, texts that grow, shrink and are each other's.
#include "state/line_texts.hpp"

#include <doctest/doctest.h>

#include <string>
#include <utility>

#include "state/sheet.hpp"
#include "unit/helpers.hpp"

TEST_CASE("texts of lines: numbers run from 1 and every other one fails") {
    TextesDeLignes textes;
    CHECK(numero_defaillance([&] { (void)textes(1); }) == 9);
    textes.commence(2);
    CHECK(textes.taille() == 2);
    for (const std::ptrdiff_t ligne : {0, 3, -1, 1'000'000}) {
        CHECK(numero_defaillance([&] { (void)textes(ligne); }) == 9);
        CHECK(numero_defaillance([&] { textes.pose(ligne, "a"); }) == 9);
    }
}

TEST_CASE("texts of lines: parts of the sheet and others stand side by side") {
    TextesDeLignes textes;
    textes.commence(3, "A=1 = 1\r\nB=A");
    const std::string_view source = textes.source();
    textes.pose(1, source.substr(0, 3));
    textes.pose(2, "ailleurs");
    textes.pose(3, source.substr(9));
    CHECK(textes(1) == "A=1");
    CHECK(textes(2) == "ailleurs");
    CHECK(textes(3) == "B=A");
    textes.pose(1, std::string(200, 'x'));
    textes.pose(2, source.substr(4));
    CHECK(textes(1) == std::string(200, 'x'));
    CHECK(textes(2) == "= 1\r\nB=A");
    textes.pose(3, {});
    CHECK(textes(3).empty());
    const TextesDeLignes ailleurs = std::move(textes);
    CHECK(ailleurs(2) == "= 1\r\nB=A");
}

TEST_CASE("texts of lines: a text shrinks, grows and is taken from a line") {
    TextesDeLignes textes;
    textes.commence(2);
    for (const char* texte : {"  abc", "ab", "abcde", "", "x", "abcdefghij"}) {
        textes.pose(1, texte);
        textes.pose(2, "voisin");
        CHECK(textes(1) == texte);
        CHECK(textes(2) == "voisin");
    }
    textes.pose(1, textes(1).substr(3));
    CHECK(textes(1) == "defghij");
    textes.pose(2, textes(1));
    CHECK(textes(2) == "defghij");
    textes.pose(2, textes(2).substr(5));
    CHECK(textes(2) == "ij");
}

TEST_CASE("texts of lines: lines come empty, and stay empty when the texts are forgotten") {
    TextesDeLignes textes;
    textes.commence(1, "abc");
    textes.pose(1, "un");
    textes.redimensionne(2);
    CHECK(textes(1) == "un");
    CHECK(textes(2).empty());
    textes.efface();
    CHECK(textes(1).empty());
    textes.pose(2, "deux");
    CHECK(textes(1).empty());
    CHECK(textes(2) == "deux");
    textes.commence(2, "neuf");
    CHECK(textes(2).empty());
}

TEST_CASE("texts of lines: writing one line again and again takes no memory without end") {
    TextesDeLignes textes;
    textes.commence(2);
    for (int i = 0; i < 100'000; ++i) {
        textes.pose(1, std::string_view("123456789").substr(0, static_cast<std::size_t>(i % 10)));
        textes.pose(2, std::string_view("123456789").substr(static_cast<std::size_t>(i % 10)));
    }
    CHECK(textes.memoire() < 1000);
}

TEST_CASE("the tables begin empty whatever sheet was calculated before") {
    feuille.formule_ligne.commence(3, "A=1");
    feuille.resultat_ligne.commence(3);
    feuille.resultat_ligne.pose(2, " = 1");
    feuille.valeur_ligne.redimensionne(3);
    feuille.valeur_ligne(2) = 1;
    feuille.texte_ecrit = feuille.texte_reconstruit = "A=1 = 1";
    feuille.colonne_resultat.assign(3, 1);
    reinitialise_feuille();
    CHECK(feuille.nombre_ligne == 0);
    CHECK(feuille.valeur_ligne.taille() + feuille.formule_ligne.taille() + feuille.resultat_ligne.taille() == 0);
    CHECK((feuille.texte_ecrit + feuille.texte_reconstruit).empty());
    CHECK(feuille.colonne_resultat.empty());
    feuille.valeur_ligne.redimensionne(3);
    CHECK(feuille.valeur_ligne(2) == 0);
    reinitialise_feuille();
}
