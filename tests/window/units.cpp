// Positions between sheet and text control, there and back, and what becomes of characters that the
// sheet's code page lacks.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include <doctest/doctest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "base/typed_text.hpp"
#include "wx/contrast.hpp"
#include "wx/pages.hpp"
#include "wx/positions.hpp"

namespace {

constexpr std::string_view kAccents = "été = 3\r\nœuvre à 5 €\r\n\r\n²"_fr;

const std::vector<std::string> kFeuilles = {
    "",
    "A=3",
    "\r\n",
    "A=3\r\nB=4",
    "A=3\r\n\r\n\r\nB=4\r\n",
    std::string(kAccents),
    std::string("\x81\x8D\x8F\x90\x9D\r\n\xFF\r\n"),
    std::string("a\tb\fc\r\n"),
    std::string("x\0y\r\nz", 6),
};

// Characters of the control's text.
std::size_t longueur(const std::string& utf8) {
    std::size_t n = 0;
    for (const char c : utf8) n += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    return n;
}

}  // namespace

TEST_CASE("a sheet goes to the control and back unchanged") {
    for (const std::string& feuille : kFeuilles)
        CHECK(texte_de_la_feuille(texte_du_controle(feuille)) == feuille);
}

TEST_CASE("the control has UTF-8 with LF") {
    CHECK(texte_du_controle("\xE9\r\nb") == "\xC3\xA9\nb");
    CHECK(texte_du_controle("a\rb\nc\r\n") == "a\nb\nc\n");
    CHECK(texte_de_la_feuille("\xE2\x82\xAC\n") == "\x80\r\n");
}

TEST_CASE("every position of the sheet goes to the control and back") {
    for (const std::string& feuille : kFeuilles) {
        CAPTURE(feuille);
        for (std::size_t i = 0; i <= feuille.size(); ++i) {
            const bool dans_fin = i > 0 && i < feuille.size() && feuille[i - 1] == '\r';
            const std::size_t la = position_du_controle(feuille, i);
            CHECK(position_de_la_feuille(feuille, la) == (dans_fin ? i + 1 : i));
        }
    }
}

TEST_CASE("a cursor between the two characters of a line end is at the start of the line below") {
    // The command that goes to a line number leaves it there.
    CHECK(position_du_controle("A=3\r\n\r\nB=4", 4) == 4);
    CHECK(position_du_controle("A=3\r\n\r\nB=4", 6) == 5);
    CHECK(position_du_controle("A=3\r\nB", 3) == 3);
    CHECK(position_du_controle("A=3\r\n", 4) == 4);
}

TEST_CASE("each kind of line end is one character of the control") {
    const std::string feuille = "a\rb\nc\r\n\r\r\n";
    const std::vector<std::size_t> la = {0, 1, 2, 3, 4, 5, 6, 6, 7, 8, 8};
    CHECK(texte_du_controle(feuille) == "a\nb\nc\n\n\n");
    for (std::size_t i = 0; i < la.size(); ++i) CHECK(position_du_controle(feuille, i) == la[i]);
    CHECK(position_de_la_feuille(feuille, 6) == 7);
    CHECK(position_de_la_feuille(feuille, 7) == 8);
    CHECK(position_de_la_feuille(feuille, 8) == 10);
}

TEST_CASE("every position of the control goes to the sheet and back") {
    for (const std::string& feuille : kFeuilles) {
        CAPTURE(feuille);
        const std::size_t fin = longueur(texte_du_controle(feuille));
        for (std::size_t i = 0; i <= fin; ++i)
            CHECK(position_du_controle(feuille, position_de_la_feuille(feuille, i)) == i);
    }
}

TEST_CASE("a position past the end is held at the end") {
    CHECK(position_du_controle("ab\r\n", 99) == 3);
    CHECK(position_de_la_feuille("ab\r\n", 99) == 4);
}

TEST_CASE("what is typed or pasted is brought to the code page") {
    struct Cas {
        const char* saisi;
        const char* accepte;
    };
    const std::vector<Cas> cas = {
        {"A=3", "A=3"},
        {"5\u22123", "5-3"},
        {"5\u22173\u22152", "5*3/2"},
        {"2\u00D73\u00F74", "2*3/4"},
        {"2\u03C0R", "2PIR"},
        {"\u221A(4)", "SQRT(4)"},
        {"1\u202F000\u00A0000\u2009000", "1000000000"},
        {"e\u0301te\u0301", "\u00E9t\u00E9"},
        {"c\u0327a", "\u00E7a"},
        {"Y\u0308", "\u0178"},
        {"a\r\nb\rc\u2028d", "a\nb\nc\nd"},
        {"\uFEFFA\u200B=1", "A=1"},
        {"\u03BCm", "\u00B5m"},
        {"\u20AC \u0153", "\u20AC \u0153"},
    };
    for (const Cas& c : cas) {
        CAPTURE(c.saisi);
        const TexteSaisi saisi = saisit(c.saisi, "");
        CHECK_FALSE(saisi.refuse.has_value());
        CHECK(saisi.texte == c.accepte);
    }
}

TEST_CASE("what is typed in front of a comment calculates") {
    struct Cas {
        const char* devant;
        const char* saisi;
        const char* accepte;
        const char* mots;
    };
    const std::vector<Cas> cas = {
        {"2", "\u2070", "^0", "^0"},
        {"2", "\u00B9", "^1", "^1"},
        {"2", "\u00B2", "\u00B2", ""},
        {"2", "\u00B3", "^3", "^3"},
        {"2", "\u2074", "^4", "^4"},
        {"2", "\u2079", "^9", "^9"},
        {"2", "\u207A", "^+", "^+"},
        {"2", "\u207B", "^-", "^-"},
        {"2", "\u207D", "^(", "^("},
        {"2", "\u207E", "^)", "^)"},
        {"2", "\u00B9\u2070", "^10", "^10"},
        {"2", "\u00B2\u2070", "^20", "^20"},
        {"10", "\u207B\u00B3", "^(-3)", ""},
        {"x ! m", "\u00B3", "\u00B3", ""},
        {"x ! m", "\u2074", "^4", "^4"},
        {"2", "\u00EA", "^e", "^e"},
        {"(A)", "\u00C2", "^A", "^A"},
        {"t", "\u00EA", "\u00EA", ""},
        {"", "\u00EA", "\u00EA", ""},
        {"3 ! 2", "\u00EA", "\u00EA", ""},
        {"2", "e\u0302", "^e", "^e"},
        {"X", "\u0109", "^c", "^c"},
        {"2", "\u00D7", "*", "*"},
        {"2", "\u00B7", "*", "*"},
        {"2", "\u00F7", "/", "/"},
        {"2", "\u2013", "-", "-"},
        {"2", "\u2014", "-", "-"},
        {"! ", "\u00D7\u00B7\u00F7\u2013\u2014", "\u00D7\u00B7\u00F7\u2013\u2014", ""},
        {"1", "\u202F", " ", ""},
        {"2", "\u200E\u200F\uFEFF", "", ""},
        {"2", "\u00BD", "\u00BD", "\u00BD ne se calcule pas"},
        {"(2) ", "\u20AC", "\u20AC", "\u20AC ne se calcule pas"},
        {"A", "\u00E9", "\u00E9", ""},
        {"3 ! 2", "\u20AC", "\u20AC", ""},
        {"3", "! 2\u20AC\n3\u00D74", "! 2\u20AC\n3*4", ""},
    };
    for (const Cas& c : cas) {
        CAPTURE(c.devant);
        CAPTURE(c.saisi);
        const TexteSaisi saisi = saisit(c.saisi, c.devant);
        CHECK_FALSE(saisi.refuse.has_value());
        CHECK(saisi.texte == c.accepte);
        CHECK(mots_saisie(saisi, c.saisi) == c.mots);
    }
}

TEST_CASE("a paste is counted, or its first refused character is told by its place") {
    const auto mots = [](const char* utf8) { return mots_collage(saisit(utf8, "")); };
    CHECK(mots("A=1\r\nB") == "5 caractères collés");
    CHECK(mots("\uFEFFA") == "1 caractère collé");
    CHECK(mots("") == "rien à coller");
    CHECK(mots("1\u202F000") == "4 caractères collés");
    CHECK(mots("A\r\nB\rC\n1 \u2264") == "caractère refusé U+2264, ligne 4, colonne 3");
    CHECK(mots("A=1 000") == "7 caractères collés, espace dans un nombre, ligne 1, colonne 4");
    CHECK(mots("A\n2\u2019 5") == "6 caractères collés, \u2019 ne se calcule pas, ligne 2, colonne 2");
}

TEST_CASE("any other character is refused, and told") {
    const auto refuse = [](std::string_view utf8) { return saisit(utf8, "").refuse.value().caractere; };
    CHECK(refuse("x\u2264" "3") == 0x2264);
    CHECK(refuse("q\u0301") == 0x301);
    CHECK(refuse("\xFF") == 0);
    CHECK(mots_refus(0x2264) == "caractère refusé U+2264");
    CHECK(mots_refus(0x1F600) == "caractère refusé U+1F600");
}

TEST_CASE("a printed text is cut into pages") {
    using Pages = std::vector<Page>;
    CHECK(pages_de("     \f", 50) == Pages{{"     "}});
    CHECK(pages_de("     a\r\n     b\f", 50) == Pages{{"     a", "     b"}});
    CHECK(pages_de("1\r\n2\r\n3\r\n4\r\n5\f", 2) == Pages{{"1", "2"}, {"3", "4"}, {"5"}});
    CHECK(pages_de("1\r\n2\f", 2) == Pages{{"1", "2"}});
    CHECK(pages_de("1\f2\f", 9) == Pages{{"1"}, {"2"}});
    CHECK(pages_de("1\r\n\r\n2", 9) == Pages{{"1", "", "2"}});
}

TEST_CASE("contrast: the scale goes from 1 to 21, either way round") {
    const Teinte noir{0, 0, 0}, blanc{255, 255, 255}, rouge{255, 0, 0};
    CHECK(contraste(noir, noir) == doctest::Approx(1));
    CHECK(contraste(noir, blanc) == doctest::Approx(21));
    CHECK(contraste(blanc, rouge) == doctest::Approx(3.998).epsilon(0.001));
    CHECK(contraste(rouge, blanc) == contraste(blanc, rouge));
}

TEST_CASE("contrast: letters of any colour can be read on any background") {
    for (int fond = 0; fond < 256; fond += 5)
        for (int voulue = 0; voulue < 512; voulue += 51) {
            const Teinte t{voulue % 256, voulue / 2 % 256, 255 - voulue / 2};
            for (const Teinte& f : {Teinte{fond, fond, fond}, Teinte{fond, 255 - fond, 128}}) {
                const Lisible l = rend_lisible(t, f);
                CAPTURE(fond);
                CHECK(contraste(l.lettres, l.fond) >= kContrasteVoulu);
            }
        }
}

TEST_CASE("contrast: a colour that reads well enough stays, and a background gives way only in need") {
    const Lisible sur_noir = rend_lisible({255, 255, 0}, {0, 0, 0});
    CHECK(sur_noir.lettres.rouge == 255);
    CHECK(sur_noir.lettres.bleu == 0);
    const Lisible sur_blanc = rend_lisible({255, 0, 0}, {255, 255, 255});
    CHECK(sur_blanc.fond.vert == 255);
    CHECK(sur_blanc.lettres.rouge > 100);      // still a red
    CHECK(sur_blanc.lettres.vert == 0);
    const Lisible sur_gris = rend_lisible({255, 0, 0}, {119, 119, 119});
    CHECK(sur_gris.fond.vert != 119);
}
