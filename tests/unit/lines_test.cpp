// On which line, in which column, what does the line say; reading a text line by line; searching.
#include "editing/lines.hpp"

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/program.hpp"
#include "unit/helpers.hpp"

namespace {

// Positions from 1:        12 3 4 567 8 9 10 11 12
const std::string kTexte = "AB\r\nCDE\r\n\r\nF";

struct LigneLue {
    std::string_view ligne;
    bool fin;
    bool operator==(const LigneLue&) const = default;
};

// All lines that LireLigne gives, and how far it went.
std::vector<LigneLue> toutes(std::string_view texte) {
    std::vector<LigneLue> lues;
    std::size_t position = 1;
    for (;;) {
        LigneLue lue{"untouched", false};
        bool trouve = false;
        LireLigne(lue.ligne, texte, position, lue.fin, trouve);
        if (!trouve) {
            CHECK(lue.ligne.empty());
            CHECK(position > texte.size());
            return lues;
        }
        lues.push_back(lue);
        REQUIRE(lues.size() < 20);
    }
}

}  // namespace

TEST_CASE("lines: start and end of the cursor's line") {
    struct Rangee {
        std::size_t curseur, debut, fin;
    };
    const Rangee rangees[] = {{0, 1, 3},  {1, 1, 3},    {2, 1, 3},    {3, 4, 8},
                              {4, 4, 8},  {5, 4, 8},    {7, 4, 8},    {8, 9, 10},
                              {9, 9, 10}, {10, 11, 13}, {11, 11, 13}, {12, 11, 13}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.curseur);
        pose_feuille(kTexte, r.curseur);
        CHECK(Debutligne() == r.debut);
        CHECK(FinLigne() == r.fin);
    }
}

TEST_CASE("lines: column of the cursor counts from 1") {
    struct Rangee {
        std::size_t curseur, colonne;
    };
    const Rangee rangees[] = {{0, 1}, {1, 2}, {2, 3},  {4, 1}, {5, 2},
                              {7, 4}, {9, 1}, {11, 1}, {12, 2}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.curseur);
        pose_feuille(kTexte, r.curseur);
        CHECK(WhereX() == r.colonne);
    }
    pose_feuille("12345", 3);
    CHECK(WhereX() == 4);
}

TEST_CASE("lines: number of the line that holds a position") {
    const int numeros[] = {1, 1, 1, 2, 2, 2, 2, 2, 3, 3, 4, 4, 4};
    pose_feuille(kTexte);
    for (std::size_t position = 0; position < std::size(numeros); ++position) {
        CAPTURE(position);
        CHECK(NumeroTxt(kTexte, position) == numeros[position]);
        CHECK(numero_de_ligne(kTexte, position) == numeros[position]);
    }
    CHECK(NumeroTxt(kTexte, 500) == 4);
    CHECK(NumeroTxt(std::string(32766, '\r'), 32766) == 32767);
    const std::string longue(32767, '\r');
    CHECK(numero_defaillance([&] { NumeroTxt(longue, 32767); }) == 6);
    CHECK(numero_de_ligne(longue, 32767) == 32768);
}

TEST_CASE("lines: text of the line that holds a position") {
    const char* lignes[] = {"AB",  "AB",  "AB", "AB", "CDE", "CDE", "CDE",
                            "CDE", "CDE", "",   "",   "F",   "F",   "F"};
    pose_feuille(kTexte);
    for (std::size_t position = 0; position < std::size(lignes); ++position) {
        CAPTURE(position);
        CHECK(extraitLigne(position) == lignes[position]);
    }
}

TEST_CASE("lines: an empty text has one empty line") {
    CHECK(Debutligne() == 1);
    CHECK(FinLigne() == 1);
    CHECK(WhereX() == 1);
    CHECK(extraitLigne(0).empty());
    CHECK(extraitLigne(1).empty());
    CHECK(NumeroTxt(memoire.texte, 0) == 1);
    SurNumero(2);
    CHECK(memoire.sel_start == 0);
}

TEST_CASE("lines: going to a line leaves the cursor in the line end before it") {
    struct Rangee {
        int numero;
        std::size_t curseur;
    };
    const Rangee rangees[] = {{1, 6}, {2, 3}, {3, 8}, {4, 10}, {5, 6}, {99, 6}, {0, 6}, {-3, 6}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.numero);
        pose_feuille(kTexte, 6);
        SurNumero(r.numero);
        CHECK(memoire.sel_start == r.curseur);
        CHECK(memoire.sel_length == 0);
    }
}

TEST_CASE("lines: the line reached by its number is the one that holds the cursor's position") {
    pose_feuille("\r\nB\r\n\r\nD\r\n");
    const char* lignes[] = {"", "B", "", "D", ""};
    for (int numero = 2; numero <= 5; ++numero) {
        CAPTURE(numero);
        SurNumero(numero);
        CHECK(NumeroTxt(memoire.texte, memoire.sel_start) == numero);
        CHECK(extraitLigne(memoire.sel_start + 1) == lignes[numero - 1]);
    }
}

TEST_CASE("lines: extent of a line, and of line 1 for one that isn't there") {
    pose_feuille(kTexte);
    struct Rangee {
        int numero;
        std::size_t debut, fin;
    };
    for (const Rangee& r :
         {Rangee{1, 0, 2}, Rangee{2, 4, 7}, Rangee{3, 9, 9}, Rangee{4, 11, 12}, Rangee{5, 0, 2}}) {
        CAPTURE(r.numero);
        CHECK(etendue_ligne(r.numero).debut == r.debut);
        CHECK(etendue_ligne(r.numero).fin == r.fin);
    }
}

TEST_CASE("lines: reading a text line by line") {
    struct Rangee {
        std::string texte;
        std::vector<LigneLue> lignes;
    };
    const Rangee rangees[] = {{"", {}},
                              {"A", {{"A", true}}},
                              {"AB", {{"AB", true}}},
                              {"A\r\nB", {{"A", false}, {"B", true}}},
                              {"A\r\nBC", {{"A", false}, {"BC", true}}},
                              {"A\r\n", {{"A", false}, {"", true}}},
                              {"\r\n", {{"", false}, {"", true}}},
                              {"\r\n\r\n", {{"", false}, {"", false}, {"", true}}},
                              {"A\r\n\r\nB", {{"A", false}, {"", false}, {"B", true}}},
                              {"AB\rC\r\nD", {{"AB\rC", false}, {"D", true}}},
                              {"A\nB\r\nC", {{"A\nB", false}, {"C", true}}},
                              {"AB\r", {{"AB\r", true}}},
                              {"\r", {{"", true}}},
                              {"\n", {{"", true}}},
                              {"A\r\n\r", {{"A", false}, {"", true}}},
                              {" A \r\n B", {{" A ", false}, {" B", true}}}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.texte);
        CHECK(toutes(r.texte) == r.lignes);
    }
}

TEST_CASE("lines: a search ignores case and puts the cursor one character inside the match") {
    struct Rangee {
        const char* chaine;
        std::size_t debut;
        std::ptrdiff_t position;
    };
    const std::string texte = cp("Été\r\nabcABC\r\nété");
    const Rangee rangees[] = {{"ABC", 1, 6},    {"ABC", 6, 6},  {"ABC", 7, 9}, {"ABC", 10, -1},
                              {"ÉTÉ", 1, 1},    {"ÉTÉ", 2, 14}, {"É", 15, 16}, {"X", 1, -1},
                              {"ABC", 0, 6},    {"É", 16, 16},  {"É", 17, -1}, {"É", 900, -1},
                              {"C\r\n", 1, 11}, {"", 3, 3},     {"", 17, -1}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.chaine);
        CAPTURE(r.debut);
        pose_feuille(texte, 2);
        CHECK(find(cp(r.chaine), r.debut) == r.position);
        CHECK(memoire.sel_start == (r.position < 0 ? 2 : static_cast<std::size_t>(r.position)));
    }
}

TEST_CASE("lines: a search in an empty text finds nothing") {
    CHECK(find("A", 1) == -1);
    CHECK(find("", 1) == -1);
    CHECK(memoire.sel_start == 0);
}
