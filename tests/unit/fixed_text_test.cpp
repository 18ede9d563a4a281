// The fixed text of a value against a plain reading of its rule: fifteen significant digits, rounded
// half away from zero, zeros after them.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "base/number.hpp"

namespace {

// The rule, digit by digit, from the C library's own fifteen digits.
std::string par_les_chiffres(double x, int decimales) {
    char texte[40];
    std::snprintf(texte, sizeof texte, "%.14e", std::fabs(x));
    std::string chiffre = std::string(1, texte[0]) + std::string(texte + 2, 14);
    int exposant = std::atoi(texte + 17);
    // All digits with the point after the integer part, long enough to be cut anywhere.
    std::string entiers = exposant >= 0 ? "" : "0", tous = chiffre;
    if (exposant < 0) tous = std::string(static_cast<std::size_t>(-exposant), '0') + tous;
    const std::size_t point = exposant >= 0 ? static_cast<std::size_t>(exposant) + 1 : 1;
    tous = "0" + tous + std::string(420, '0');
    const std::size_t fin = 1 + point + static_cast<std::size_t>(decimales);
    bool retenue = tous[fin] >= '5';
    std::string garde = tous.substr(0, fin);
    for (std::size_t i = garde.size(); retenue && i-- > 0;) {
        retenue = garde[i] == '9';
        garde[i] = retenue ? '0' : static_cast<char>(garde[i] + 1);
    }
    if (garde[0] == '0') garde.erase(0, 1);
    const std::size_t virgule = garde.size() - static_cast<std::size_t>(decimales);
    std::string sortie = x < 0 ? "-" : "";
    sortie += garde.substr(0, virgule);
    return decimales > 0 ? sortie + "." + garde.substr(virgule) : sortie;
}

}  // namespace

TEST_CASE("fixed text follows the fifteen digits for values of all sizes") {
    std::mt19937_64 tirage(7);
    for (int i = 0; i < 200000; ++i) {
        const int decimales = static_cast<int>(tirage() % 9);
        const double mantisse = static_cast<double>(static_cast<std::int64_t>(tirage())) / 9e18;
        const double x = mantisse * std::pow(10.0, static_cast<double>(tirage() % 30) - 12);
        if (x != std::trunc(x)) REQUIRE(texte_fixe(x, decimales) == par_les_chiffres(x, decimales));
    }
}

TEST_CASE("fixed text follows the fifteen digits half-way between two decimals") {
    std::mt19937_64 tirage(8);
    for (int i = 0; i < 200000; ++i) {
        const int decimales = static_cast<int>(tirage() % 7);
        const double moitie = static_cast<double>(tirage() % 2'000'000'000) + 0.5;
        double x = moitie / std::pow(10.0, decimales);
        for (int pas = static_cast<int>(tirage() % 5); pas > 0; --pas) x = std::nextafter(x, 1e300);
        if (x != std::trunc(x)) REQUIRE(texte_fixe(x, decimales) == par_les_chiffres(x, decimales));
    }
}

TEST_CASE("short text: the fixed text without its last zeros, at every length of figures and decimals") {
    std::vector<std::int64_t> unites;
    for (std::int64_t n = 0; n <= 2100; ++n) unites.push_back(n);
    for (std::int64_t dizaine = 1000; dizaine <= 1'000'000'000'000; dizaine *= 10)
        for (const std::int64_t fois : {1, 2, 5, 9})
            for (const std::int64_t ecart : {-11, -1, 0, 1, 10, 100, 350}) unites.push_back(dizaine * fois + ecart);
    for (int decimales = 0; decimales <= 8; ++decimales)
        for (const std::int64_t n : unites)
            for (const double signe : {1.0, -1.0}) {
                const double x = signe * static_cast<double>(n) / std::pow(10.0, decimales);
                std::string attendu = texte_fixe(x, decimales), obtenu = "x";
                if (attendu.find('.') != std::string::npos) {
                    attendu.erase(attendu.find_last_not_of('0') + 1);
                    if (attendu.back() == '.') attendu.pop_back();
                }
                ajoute_texte_court(obtenu, x, decimales);
                CHECK(obtenu == "x" + attendu);
            }
}
