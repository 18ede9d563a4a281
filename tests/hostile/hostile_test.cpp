// Sheets that nobody would type: too long, too deep, too large, of bytes that mean nothing. Each
// ends in bounded time with the box or the error that is due, and with the user's text whole.
#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "state/variables.hpp"
#include "support/program.hpp"
#include "unit/helpers.hpp"

namespace {

constexpr std::size_t kTresLong = 40'000'000;

std::string repete(std::string_view motif, std::size_t fois) {
    std::string texte;
    const std::size_t taille = motif.size() * fois;
    texte.reserve(taille);
    for (texte = motif; texte.size() < taille;) texte.append(texte, 0, taille - texte.size());   // twice as long
    return texte;
}

// Where the two texts part; -1 when they are equal. Never prints the texts: they are too long.
std::ptrdiff_t difference(std::string_view a, std::string_view b) {
    if (a == b) return -1;
    return std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
}

// The last message and the cursor are those of the line that begins at `debut` of the text.
void verifie_ligne_dite(std::size_t debut) {
    const std::size_t fin = std::min(memoire.texte.find("\r\n", debut), memoire.texte.size());
    CHECK(memoire.sel_start == fin);
    REQUIRE_FALSE(memoire.messages.empty());
    const std::string_view ligne = sans_blancs(std::string_view(memoire.texte).substr(debut, fin - debut));
    CHECK(difference(memoire.messages.back(), ligne) == -1);
}

}  // namespace

TEST_CASE("hostile: a comment of forty million characters is kept") {
    const std::string commentaire = "!" + std::string(kTresLong, 'x');
    const std::string texte = calcule_neuf("A=1\r\n" + commentaire + "\r\nB=A+1");
    CHECK(difference(texte, "A=1 = 1\r\n" + commentaire + "\r\nB=A+1 = 2") == -1);
    CHECK(boites().empty());
    CHECK_FALSE(formule_en_erreur());
}

TEST_CASE("hostile: a comment of forty million characters behind a formula is kept") {
    const std::string ligne = "2+2 ! " + std::string(kTresLong, 'x');
    const std::string texte = calcule_neuf(ligne);
    CHECK(difference(texte, ligne + " = 4") == -1);
    verifie_ligne_dite(0);
}

TEST_CASE("hostile: formulas of forty million characters fail with one box") {
    struct Rangee {
        std::string motif;
        std::size_t fois;
    };
    for (const Rangee& r :
         {Rangee{"7", kTresLong}, Rangee{"1+", kTresLong / 2}, Rangee{"(", kTresLong},
          Rangee{"AB", kTresLong / 2}, Rangee{"2X", kTresLong / 2}, Rangee{"SIN(", kTresLong / 4},
          Rangee{";", kTresLong}}) {
        CAPTURE(r.motif);
        const std::string formule = repete(r.motif, r.fois);
        calcule_neuf("A=1\r\n" + formule + "\r\nB=2");
        CHECK(boites() == Textes{"6 6 sur p_lis_symbole"});
        CHECK(formule_en_erreur());
        // The user's text is whole: the first line calculated, the long one as it was with its
        // error after it (which may quote a symbol), the last one only copied.
        const std::string tete = "A=1 = 1\r\n" + formule + " = ";
        CHECK(difference(std::string_view(memoire.texte).substr(0, tete.size()), tete) == -1);
        CHECK(memoire.texte.ends_with("\r\nB=2"));
        CHECK(memoire.texte.size() < tete.size() + 40'000);
        verifie_ligne_dite(9);
    }
}

TEST_CASE("hostile: forty million blanks go, and the line behind them is calculated") {
    CHECK(calcule_neuf(std::string(kTresLong, ' ') + "2+2" + std::string(kTresLong, ' ')) ==
          "2+2 = 4");
    CHECK(calcule_neuf("1\r\n" + std::string(kTresLong, ' ') + "\r\n2") == "1 = 1\r\n\r\n2 = 2");
    CHECK(boites().empty());
}

TEST_CASE("hostile: an old result of forty million characters goes") {
    CHECK(calcule_neuf("2+2 = " + std::string(kTresLong, '=')) == "2+2 = 4");
}

TEST_CASE("hostile: every byte in a formula, refused or not, leaves the text whole") {
    for (int code = 0; code < 256; ++code) {
        CAPTURE(code);
        const std::string ligne = std::string("1") + static_cast<char>(code);
        const std::string texte = calcule_neuf("A=3\r\n" + ligne + "\r\nB=2");
        const bool commentaire = code == '!', coupee = code == ' ';
        if (code < 32) {
            CHECK(boites() == Textes{"code < 32 en colonne 2"});
            CHECK(texte == "A=3 = 3\r\n" + ligne + "\r\nB=2");
        } else {
            CHECK(boites().empty());
            CHECK(texte.starts_with("A=3 = 3\r\n" + (coupee ? "1" : ligne) + " = "));
            CHECK(texte.find("\r\nB=2") != std::string::npos);
            if (commentaire) CHECK(texte == "A=3 = 3\r\n1! = 1\r\nB=2 = 2");
        }
        const std::size_t curseur = memoire.sel_start;
        CHECK((curseur == texte.size() || texte.compare(curseur, 2, "\r\n") == 0));
    }
}

TEST_CASE("hostile: all bytes in a comment are kept") {
    std::string octets = "!";
    for (int code = 0; code < 256; ++code) octets += static_cast<char>(code);
    CHECK(calcule_neuf("1\r\n" + octets + "\r\n2") == "1 = 1\r\n" + octets + "\r\n2 = 2");
    CHECK(boites().empty());
}

TEST_CASE("hostile: all bytes in one formula stop at the first control character") {
    std::string octets = "A";
    for (int code = 255; code >= 0; --code) octets += static_cast<char>(code);
    octets.erase(
        std::remove_if(octets.begin(), octets.end(), [](char c) { return c == '=' || c == '!'; }),
        octets.end());
    CHECK(calcule_neuf(octets + "\r\n2") == octets + "\r\n2");
    CHECK(boites() == Textes{"code < 32 en colonne 224"});
}
