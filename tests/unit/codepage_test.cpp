// The code page: literals, capitals, trimming, and the way to UTF-8 and back.
#include "base/codepage.hpp"
#include "base/count.hpp"

#include <doctest/doctest.h>

#include <string>

namespace {

std::string octet(int code) { return std::string(1, static_cast<char>(code)); }

std::string tous_les_octets() {
    std::string texte;
    for (int c = 0; c < 256; ++c) texte += static_cast<char>(c);
    return texte;
}

}  // namespace

TEST_CASE("codepage: literals are bytes of the code page") {
    CHECK("é"_fr == octet(0xE9));
    CHECK("²"_fr == octet(0xB2));
    CHECK("œŒ€Ÿ’"_fr == "\x9C\x8C\x80\x9F\x92");
    CHECK("abc"_fr == "abc");
    CHECK(""_fr.empty());
}

TEST_CASE("codepage: capital of every code") {
    for (int c = 0; c < 256; ++c) {
        const bool petite = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
        CAPTURE(c);
        CHECK(capitales(octet(c)) == octet(petite ? c - 32 : c));
    }
    CHECK(capitales("déjà, œuvre, ÿ, š, ž ÷ ² µ"_fr) == "DÉJÀ, œUVRE, ÿ, š, ž ÷ ² µ"_fr);
    std::string cible = "un texte plus long";
    range_capitales(cible, "ça"_fr);
    CHECK(cible == "ÇA"_fr);
}

TEST_CASE("codepage: trimming takes blanks alone") {
    struct Rangee {
        std::string texte, taille;
    };
    const Rangee rangees[] = {{"", ""},
                              {"   ", ""},
                              {" a ", "a"},
                              {"a b", "a b"},
                              {"\ta ", "\ta"},
                              {octet(0xA0) + "a", octet(0xA0) + "a"},
                              {"  a\r\n", "a\r\n"},
                              {std::string("\0 ", 2), std::string("\0", 1)}};
    for (const Rangee& r : rangees) CHECK(sans_blancs(r.texte) == r.taille);
}

TEST_CASE("codepage: every byte goes to UTF-8 and back") {
    const std::string tous = tous_les_octets();
    const std::string utf8 = vers_utf8(tous);
    CHECK(est_utf8(utf8));
    const auto retour = depuis_utf8(utf8);
    REQUIRE(retour.has_value());
    CHECK(*retour == tous);
    CHECK(vers_utf8("é²œ€"_fr) == "é²œ€");
}

TEST_CASE("codepage: a byte-order mark is dropped at the start only") {
    CHECK(depuis_utf8("\xEF\xBB\xBF"
                      "A=1") == "A=1");
    RefusTexte refus{};
    CHECK_FALSE(depuis_utf8("A\xEF\xBB\xBF", &refus).has_value());
    CHECK(refus.octet == 1);
    CHECK(refus.caractere == 0xFEFF);
}

TEST_CASE("codepage: what the code page lacks is refused with its place") {
    struct Rangee {
        std::string texte;
        std::size_t octet;
        char32_t caractere;
    };
    const Rangee rangees[] = {{"A=π", 2, 0x3C0},
                              {"é→", 2, 0x2192},
                              {"12\xF0\x9F\x98\x80", 2, 0x1F600},
                              {"ab\xFF", 2, 0},
                              {"\xC3", 0, 0},
                              {"a\xC3(", 1, 0},
                              {"\x80", 0, 0},
                              {"\xC0\xAF", 0, 0},
                              {"\xE0\x80\xAF", 0, 0},
                              {"\xED\xA0\x80", 0, 0},
                              {"\xF4\x90\x80\x80", 0, 0},
                              {"\xF0\x80\x80\xAF", 0, 0},
                              {"\xE2\x82", 0, 0}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.texte);
        RefusTexte refus{99, 99};
        CHECK_FALSE(depuis_utf8(r.texte, &refus).has_value());
        CHECK(refus.octet == r.octet);
        CHECK(refus.caractere == r.caractere);
    }
}

TEST_CASE("codepage: valid UTF-8 is told from other bytes") {
    CHECK(est_utf8(""));
    CHECK(est_utf8("A=1\r\n"));
    CHECK(est_utf8("é→\xF0\x9F\x98\x80"));
    CHECK_FALSE(est_utf8("\xE9"));
    CHECK_FALSE(est_utf8("abc\xE9 d"));
    CHECK_FALSE(est_utf8("\xC1\xBF"));
    CHECK_FALSE(est_utf8("\xED\xBF\xBF"));
    CHECK_FALSE(est_utf8("\xE2\x82"));
}

TEST_CASE("counting a character: texts of every length about a piece's, and all characters the same") {
    for (std::size_t n = 0; n <= 1000; ++n) {
        const std::string texte(n, '\r');
        CHECK(compte_octets(texte, '\r') == n);
        CHECK(compte_octets(texte, '\n') == 0);
    }
    std::string melange;
    for (int i = 0; i < 5000; ++i) melange += static_cast<char>(i % 7 == 0 ? '\r' : 'a' + i % 20);
    CHECK(compte_octets(melange, '\r') == 715);
}
