// A piece of a line in words, sign by sign.
#include <doctest/doctest.h>

#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "support/program.hpp"
#include "verification/sign_words.hpp"

namespace {

std::string en_mots(std::string_view utf8) {
    programme_neuf();
    return vers_utf8(signes_en_mots(depuis_utf8(utf8).value()));
}

}  // namespace

TEST_CASE("words of signs: numbers stay, each sign has its word") {
    CHECK(en_mots(",5+2") == "virgule 5 plus 2");
    CHECK(en_mots("1.5*2.25") == "1.5 fois 2.25");
    CHECK(en_mots("1.5.2") == "1.5.2");
    CHECK(en_mots("5.") == "5 point");
    CHECK(en_mots(".5") == "point 5");
    CHECK(en_mots("’500+2") == "apostrophe 500 plus 2");
    CHECK(en_mots("(3+4)") == "parenthèse 3 plus 4 fin parenthèse");
    CHECK(en_mots("%-1") == "pour cent moins 1");
    CHECK(en_mots(":4;3") == "deux points 4 point virgule 3");
    CHECK(en_mots("×2÷3") == "signe fois 2 signe divisé 3");
    CHECK(en_mots("10 €") == "10 euro");
    CHECK(en_mots("a\xC2\xA0z") == "A blanc Z");
    CHECK(en_mots("") == "");
    CHECK(en_mots("   ") == "");
}

TEST_CASE("words of signs: functions, matrices and operators that are words are named, other words stay") {
    CHECK(en_mots("sin(30)") == "sinus de parenthèse 30 fin parenthèse");
    CHECK(en_mots("2PI") == "2 pi");
    CHECK(en_mots("MA*mj") == "matrice A fois matrice J");
    CHECK(en_mots("MK") == "MK");
    CHECK(en_mots("A and B") == "A et B");
    CHECK(en_mots("x xor y") == "X ou exclusif i grec");
    CHECK(en_mots("le prix payé") == "le prix payé");
    CHECK(en_mots("la faire") == "la faire");   // holds the letters of AIR
    CHECK(en_mots("d'eau à 3 l’heure") == "d'eau à 3 l’heure");
    CHECK(en_mots("1'500") == "1 apostrophe 500");
}
