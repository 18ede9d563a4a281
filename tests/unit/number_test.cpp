// Numbers and their texts: prefixes, general, fixed and leading-blank texts, conversions to 16 and
// 32 bits, and the test of a floating result.
#include "base/number.hpp"

#include <doctest/doctest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "unit/helpers.hpp"

namespace {

constexpr double kInfini = std::numeric_limits<double>::infinity();
const double kIndefini = std::numeric_limits<double>::quiet_NaN();

std::string zeros(int n) { return std::string(static_cast<std::size_t>(n), '0'); }

}  // namespace

TEST_CASE("number: a short literal has the bits of the nearest float") {
    std::mt19937 tirage(20261122);
    for (int i = 0; i < 200'000; ++i) {
        std::string texte;
        const std::size_t longueur = 1 + tirage() % 20, point = tirage() % 22;
        for (std::size_t j = 0; j < longueur; ++j) {
            if (j == point) texte += '.';
            texte += static_cast<char>('0' + tirage() % 10);
        }
        double attendu = 0;
        std::from_chars(texte.data(), texte.data() + texte.size(), attendu);
        CHECK_MESSAGE(prefixe_numerique(texte) == attendu, texte);
    }
}

TEST_CASE("number: numeric prefix of a text") {
    struct Rangee {
        std::string texte;
        double valeur;
    };
    const Rangee rangees[] = {{"", 0},
                              {"12", 12},
                              {"  7", 7},
                              {"+3", 3},
                              {"-3", -3},
                              {"- 3", 0},
                              {"--3", 0},
                              {"+-3", 0},
                              {"1.5.3", 1.5},
                              {"12ABC", 12},
                              {"2E*", 2},
                              {"1D3", 1000},
                              {"1D+3", 1000},
                              {"1E3", 1000},
                              {"1E+3", 1000},
                              {"1E-3", 0.001},
                              {"1E", 1},
                              {"1E+", 1},
                              {"1e3", 1},
                              {"1d3", 1},
                              {"1E 3", 1},
                              {".5", 0.5},
                              {"5.", 5},
                              {"5.E1", 50},
                              {"-.5", -0.5},
                              {".", 0},
                              {".E5", 0},
                              {"E5", 0},
                              {"1,5", 1},
                              {"1 000", 1},
                              {"\t5", 0},
                              {"0x10", 0},
                              {"INF", 0},
                              {"NAN", 0},
                              {"1_000", 1},
                              {"0.1", 0.1},
                              {"123456789012345", 123456789012345.0},
                              {"1234567890123456789", 1234567890123456789.0},
                              {"1E0000000000000000000005", 1e5},
                              {"1E-400", 0},
                              {"-1E-400", 0},
                              {"0E999", 0},
                              {"0.0E999", 0},
                              {"1E-99999999999999999999", 0},
                              {"0." + zeros(400) + "1E405", 1e4},
                              {"1" + zeros(400) + "E-398", 100},
                              {"1.7976931348623157E308", std::numeric_limits<double>::max()},
                              {"5E-324", std::numeric_limits<double>::denorm_min()}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.texte);
        CHECK(prefixe_numerique(r.texte) == r.valeur);
    }
}

TEST_CASE("number: a prefix too large is an overflow") {
    for (const std::string& texte :
         {std::string("1E309"), std::string("-1E999"), "1" + zeros(309), "9" + zeros(400) + ".5",
          std::string("1.7976931348623159E308"), std::string("1E99999999999999999999"),
          "0." + zeros(10) + "1E320", std::string("1D400")}) {
        CAPTURE(texte);
        CHECK(numero_defaillance([&] { prefixe_numerique(texte); }) == 6);
    }
}

TEST_CASE("number: general text has fifteen digits at most") {
    struct Rangee {
        double valeur;
        const char* texte;
    };
    const Rangee rangees[] = {{0, "0"},
                              {-0.0, "0"},
                              {1, "1"},
                              {-2.5, "-2.5"},
                              {0.1, "0.1"},
                              {0.1 + 0.2, "0.3"},
                              {1.0 / 3, "0.333333333333333"},
                              {2.0 / 3, "0.666666666666667"},
                              {100, "100"},
                              {1e14, "100000000000000"},
                              {123456789012345, "123456789012345"},
                              {1e15, "1E+15"},
                              {999999999999999.9, "1E+15"},
                              {999999999999999, "999999999999999"},
                              {1234567890123456, "1.23456789012346E+15"},
                              {0.0001, "0.0001"},
                              {0.00001, "1E-05"},
                              {0.00009999999999999999, "0.0001"},
                              {0.00012345, "0.00012345"},
                              {0.000012345, "1.2345E-05"},
                              {1.5e20, "1.5E+20"},
                              {1e100, "1E+100"},
                              {-1e-100, "-1E-100"},
                              {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
                              {std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"}};
    for (const Rangee& r : rangees) CHECK(texte_general(r.valeur) == r.texte);
}

TEST_CASE("number: fixed text rounds half away from zero on the decimal form") {
    struct Rangee {
        double valeur;
        int decimales;
        const char* texte;
    };
    const Rangee rangees[] = {{1.005, 2, "1.01"},
                              {2.675, 2, "2.68"},
                              {1.15 * 3, 1, "3.5"},
                              {-1.005, 2, "-1.01"},
                              {0.1 + 0.2, 20, "0.30000000000000000000"},
                              {0, 2, "0.00"},
                              {-0.0, 2, "0.00"},
                              {-0.001, 2, "-0.00"},
                              {0.001, 2, "0.00"},
                              {0.005, 2, "0.01"},
                              {0.0049, 2, "0.00"},
                              {0.5, 0, "1"},
                              {1.5, 0, "2"},
                              {2.5, 0, "3"},
                              {-2.5, 0, "-3"},
                              {0.4999, 0, "0"},
                              {-0.4, 0, "-0"},
                              {9.9999, 3, "10.000"},
                              {999.995, 2, "1000.00"},
                              {0.05, 1, "0.1"},
                              {0.95, 1, "1.0"},
                              {1e-20, 2, "0.00"},
                              {1e-20, 20, "0.00000000000000000001"},
                              {1e21, 0, "1000000000000000000000"},
                              {1e21, 1, "1000000000000000000000.0"},
                              {123456789012345678.0, 2, "123456789012346000.00"},
                              {12345678901234.56, 2, "12345678901234.60"},
                              {7, 3, "7.000"},
                              {-7, 0, "-7"},
                              {2.5, -3, "3"},
                              {1.0 / 3, 5, "0.33333"}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.decimales);
        CHECK(texte_fixe(r.valeur, r.decimales) == r.texte);
    }
    CHECK(texte_fixe(1.0 / 3, 100) == "0." + std::string(15, '3') + zeros(85));
    CHECK(texte_fixe(1e300, 0) == "1" + zeros(300));
}

TEST_CASE("number: fixed text is appended") {
    std::string texte = "x";
    ajoute_texte_fixe(texte, 1.5, 1);
    ajoute_texte_fixe(texte, -2, 0);
    CHECK(texte == "x1.5-2");
}

TEST_CASE("number: leading-blank form") {
    CHECK(forme_blanc(0.5) == " 0.5");
    CHECK(forme_blanc(3) == " 3");
    CHECK(forme_blanc(-2) == "-2");
    CHECK(forme_blanc(0) == " 0");
    CHECK(forme_blanc(-0.0) == " 0");
    CHECK(forme_blanc(1e20) == " 1E+20");
}

TEST_CASE("number: plain figures of an integer") {
    CHECK(chiffres(0) == "0");
    CHECK(chiffres(-32768) == "-32768");
    CHECK(chiffres(1234567) == "1234567");
}

TEST_CASE("number: rounding to sixteen bits takes ties to the even neighbour") {
    struct Rangee {
        double valeur;
        int entier;
    };
    const Rangee rangees[] = {{0.5, 0},         {1.5, 2},         {2.5, 2},
                              {3.5, 4},         {-2.5, -2},       {2.51, 3},
                              {32766.5, 32766}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const Rangee& r : rangees) CHECK(vers_16_arrondi(r.valeur) == r.entier);
    for (const double x : {32767.5, 40000.0, -32768.6, 1e300, kInfini, -kInfini, kIndefini})
        CHECK(numero_defaillance([&] { vers_16_arrondi(x); }) == 6);
}

TEST_CASE("number: truncation to sixteen bits goes toward zero") {
    CHECK(vers_16_tronque(2.9) == 2);
    CHECK(vers_16_tronque(-2.9) == -2);
    CHECK(vers_16_tronque(32767.9) == 32767);
    CHECK(vers_16_tronque(-32768.9) == -32768);
    for (const double x : {32768.0, -32769.0, kInfini, -kInfini, kIndefini})
        CHECK(numero_defaillance([&] { vers_16_tronque(x); }) == 6);
}

TEST_CASE("number: truncation to thirty-two bits goes toward zero") {
    CHECK(vers_32_tronque(-1.5) == -1);
    CHECK(vers_32_tronque(2147483647.9) == 2147483647);
    CHECK(vers_32_tronque(-2147483648.9) == std::numeric_limits<std::int32_t>::min());
    for (const double x : {2147483648.0, -2147483649.0, 5e9, kInfini, -kInfini, kIndefini})
        CHECK(numero_defaillance([&] { vers_32_tronque(x); }) == 6);
}

TEST_CASE("number: a result is stored before its overflow is told") {
    double cible = 0;
    CHECK(numero_defaillance([&] { range(cible, 1e308 * 10, 1e308, 10.0); }) == 6);
    CHECK(cible == kInfini);
    CHECK(numero_defaillance([&] { range(cible, 5.0, 2.0, 3.0); }) == 0);
    CHECK(cible == 5);
}

TEST_CASE("number: an operand that is already infinite raises nothing new") {
    double cible = 0;
    CHECK(numero_defaillance([&] { range(cible, kInfini * 2, kInfini, 2.0); }) == 0);
    CHECK(cible == kInfini);
    CHECK(numero_defaillance([&] { range(cible, kIndefini + 1, kIndefini, 1.0); }) == 0);
    CHECK(std::isnan(cible));
    CHECK(numero_defaillance([&] { range(cible, kInfini - kInfini, kInfini, kInfini); }) == 6);
    CHECK(numero_defaillance([&] { range(cible, 0 * kInfini, 0.0, kInfini); }) == 6);
}

TEST_CASE("number: a quotient by zero is a division by zero, whatever is divided") {
    double cible = 7;
    CHECK(numero_defaillance([&] { range_quotient(cible, 1, 0); }) == 11);
    CHECK(cible == kInfini);
    CHECK(numero_defaillance([&] { range_quotient(cible, 0, 0); }) == 11);
    CHECK(std::isnan(cible));
    CHECK(numero_defaillance([&] { range_quotient(cible, -1, -0.0); }) == 11);
    CHECK(numero_defaillance([&] { range_quotient(cible, 6, 4); }) == 0);
    CHECK(cible == 1.5);
    CHECK(numero_defaillance([&] { range_quotient(cible, 1e308, 1e-10); }) == 6);
    CHECK(numero_defaillance([&] { range_quotient(cible, 5, kInfini); }) == 0);
    CHECK(cible == 0);
}
