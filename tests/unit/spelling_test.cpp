// Results character by character.
#include "shell/spelling.hpp"

#include <doctest/doctest.h>

#include <string>

#include "base/codepage.hpp"

TEST_CASE("spelling: digits one by one, in groups of three where there are more, signs in words") {
    const struct {
        const char* texte;
        const char* mots;
    } cas[] = {
        {"7", "7"},
        {"42", "4 2"},
        {"120", "1 2 0"},
        {"1024", "1, 0 2 4"},
        {"-1234567.5", "moins 1, 2 3 4, 5 6 7 point 5"},
        {"0.33333333", "0 point 3 3 3, 3 3 3, 3 3"},
        {"1.50E3", "1 point 5 0 fois 10 puissance 3"},
        {"-1.23E-12", "moins 1 point 2 3 fois 10 puissance moins 1 2"},
        {"1.E+300", "1 point fois 10 puissance plus 3 0 0"},
        {"5.E00", "5 point fois 10 puissance 0 0"},
        {"Pi/4", "pi divisé par 4"},
        {"-3Pi/2", "moins 3 pi divisé par 2"},
        {"INF", "infini"},
        {"-INF", "moins infini"},
        {"NAN", "pas un nombre"},
        {"14,20;30,44", "1 4 virgule 2 0 point virgule 3 0 virgule 4 4"},
        {"", ""},
    };
    for (const auto& c : cas) {
        CAPTURE(std::string(c.texte));
        CHECK(vers_utf8(epele(c.texte, false)) == std::string(c.mots));
    }
}

TEST_CASE("spelling: hexadecimal letters are digits") {
    CHECK(epele("FF", true) == "F F");
    CHECK(epele("1E5", true) == "1 E 5");
    CHECK(epele("FFFFFFFF", true) == "F F, F F F, F F F");
}
