// The words that tell a line's form, and the set of letters that rules them out.
#include "sheet/marks.hpp"

#include <doctest/doctest.h>

#include <string>

#include "base/codepage.hpp"

TEST_CASE("marks: every letter has its own bit, other characters have none") {
    Signes toutes = 0;
    for (char c = 'A'; c <= 'Z'; ++c) {
        CHECK(bit_lettre(c) != 0);
        CHECK(bit_lettre(static_cast<char>(c + 32)) == bit_lettre(c));
        CHECK((toutes & bit_lettre(c)) == 0);
        toutes |= bit_lettre(c);
    }
    for (int c = 0; c < 256; ++c) {
        const bool lettre = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (!lettre) CHECK(bit_lettre(static_cast<char>(c)) == 0);
    }
}

TEST_CASE("marks: position of a mark in a text in capitals") {
    struct Rangee {
        std::string texte;
        Marque marque;
        std::size_t position;
    };
    constexpr std::size_t nulle_part = std::string_view::npos;
    const Rangee rangees[] = {{"FIN", kFin, 0},
                              {"LA FIN", kFin, 3},
                              {"NIF", kFin, nulle_part},
                              {"", kFin, nulle_part},
                              {std::string("VARIABLE A NON DÉFINIE"_fr), kFin, 17},
                              {"FI N", kFin, nulle_part},
                              {"INCX(1,1,3)", kMotInc, 0},
                              {"X+PAIR", kMotAir, 3},
                              {"TRISTATX", kMotStatX, 3},
                              {"TRISTATX", kMotTriStatX, 0},
                              {"STATX", kMotStatXY, nulle_part},
                              {"STATXY", kMotStatX, 0},
                              {"DEFFON=X", kDefFonction, 0},
                              {"XDEFMA", kDefM, 1},
                              {"FRANCEURO(1)", kMotEuro, 5},
                              {"RESXY(1,2)", kMotResXY, 0},
                              {"2PI", kMotPi, 1}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.texte);
        CHECK(TexteMarque(r.texte).position(r.marque) == r.position);
        CHECK(TexteMarque(r.texte).contient(r.marque) == (r.position != nulle_part));
    }
}
