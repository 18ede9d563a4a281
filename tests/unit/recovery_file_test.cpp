// The form of recovery files: every sheet comes back as it was, and whatever was cut, changed or is
// another program's file is recognised.
#include <doctest/doctest.h>

#include <random>
#include <string>

#include "documents/recovery_file.hpp"

namespace {

EtatReprise etat(const std::string& octets) {
    FicheReprise fiche;
    std::string texte;
    return lit_reprise(octets, fiche, texte);
}

FicheReprise exemple() { return {"C:\\devoir.VXT", 3, 12, 2, true, 41}; }

const std::string kTexte = "A=3\r\nB=A*2 = 6\r\n! \xE9t\xE9";

}  // namespace

TEST_CASE("recovery file: its form is the one told in formats.md") {
    CHECK(forme_reprise(exemple(), "A=3\r\n") ==
          "VOXTAB REPRISE 1\r\nnom 13 C:\\devoir.VXT\r\nrang 3\r\ncurseur 12 2\r\nmodifie 1\r\n"
          "numero 41\r\noctets 5\r\nsomme d9c1ebd4c5f244e4\r\n\r\nA=3\r\n");
}

TEST_CASE("recovery file: its form with the sum of the sheet's file") {
    FicheReprise fiche = exemple();
    fiche.base = 0x1F;
    const std::string octets = forme_reprise(fiche, "A=3\r\n");
    CHECK(octets.starts_with("VOXTAB REPRISE 2\r\nnom 13 C:\\devoir.VXT\r\nrang 3\r\ncurseur 12 2\r\n"
                             "modifie 1\r\nnumero 41\r\nfichier 000000000000001f\r\noctets 5\r\nsomme "));
    FicheReprise lue;
    std::string texte;
    REQUIRE(lit_reprise(octets, lue, texte) == EtatReprise::bonne);
    CHECK(lue == fiche);
    CHECK(texte == "A=3\r\n");
    CHECK(lit_reprise(forme_reprise(exemple(), "A"), lue, texte) == EtatReprise::bonne);
    CHECK(!lue.base);
}

TEST_CASE("recovery file: what was written comes back") {
    std::mt19937_64 hasard(20260101);
    for (int essai = 0; essai < 500; ++essai) {
        const auto octets = [&](std::size_t taille) {
            std::string sortie(hasard() % taille, ' ');
            for (char& c : sortie) c = static_cast<char>(hasard());
            return sortie;
        };
        const FicheReprise fiche{octets(300), static_cast<std::uint32_t>(hasard()), hasard() >> 1,
                                 hasard() >> 1, hasard() % 2 == 0, hasard() >> 1, hasard()};
        const std::string texte = octets(3000);
        FicheReprise lue;
        std::string lu = "before";
        REQUIRE(lit_reprise(forme_reprise(fiche, texte), lue, lu) == EtatReprise::bonne);
        CHECK(lue == fiche);
        CHECK(lu == texte);
    }
}

TEST_CASE("recovery file: cut anywhere it is damaged, and both targets stay as they were") {
    const std::string entier = forme_reprise(exemple(), kTexte);
    for (std::size_t n = 1; n < entier.size(); ++n) {
        CAPTURE(n);
        FicheReprise fiche{"before", 1, 2, 3, false, 4};
        std::string texte = "before";
        CHECK(lit_reprise(entier.substr(0, n), fiche, texte) == EtatReprise::abimee);
        CHECK(fiche == FicheReprise{"before", 1, 2, 3, false, 4});
        CHECK(texte == "before");
    }
    CHECK(etat(entier + "x") == EtatReprise::abimee);
}

TEST_CASE("recovery file: one byte changed anywhere is seen") {
    const std::string entier = forme_reprise(exemple(), kTexte);
    for (std::size_t n = 0; n < entier.size(); ++n)
        for (const char bit : {'\x01', '\x20', '\x7F'}) {
            CAPTURE(n);
            std::string change = entier;
            change[n] = static_cast<char>(change[n] ^ bit);
            CHECK(etat(change) != EtatReprise::bonne);
        }
}

TEST_CASE("recovery file: nothing, and files of others") {
    CHECK(etat("") == EtatReprise::vide);
    for (const char* autre : {"A=3\r\n", "voxtab reprise 1\r\n", "\xFF\xFEV", "VOXTAB", " "}) {
        CAPTURE(autre);
        const bool debut = std::string(autre) == "VOXTAB";
        CHECK(etat(autre) == (debut ? EtatReprise::abimee : EtatReprise::etrangere));
    }
    CHECK(etat("VOXTAB REPRISE 2\r\n") == EtatReprise::abimee);
    std::string longueurs = "VOXTAB REPRISE 1\r\nnom 99999999999999999999 x\r\n";
    CHECK(etat(longueurs) == EtatReprise::abimee);
    longueurs = "VOXTAB REPRISE 1\r\nnom -1 x\r\n";
    CHECK(etat(longueurs) == EtatReprise::abimee);
}
