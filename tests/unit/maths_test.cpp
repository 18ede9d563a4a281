// The elementary functions: against values that are correctly rounded, at the ends of their ranges,
// and bit for bit, so that another compiler or system that changes a last digit is noticed.
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>

#include <doctest/doctest.h>

#include "base/maths.hpp"
#include "support/program.hpp"
#include "unit/helpers.hpp"

namespace {

using Fonction = double (*)(double);

constexpr double kInfini = std::numeric_limits<double>::infinity();
constexpr double kIndefini = std::numeric_limits<double>::quiet_NaN();
constexpr Fonction kToutes[] = {maths::exp, maths::log, maths::sin,
                                maths::cos, maths::tan, maths::atan};

struct Valeur {
    const char* nom;
    Fonction fonction;
    double x;
    double arrondie;   // correctly rounded, by MPFR
};

// Plain values, very small and very large ones, subnormal ones, and those close to a zero or a pole.
constexpr Valeur kValeurs[] = {
    {"exp", maths::exp, 0x1p+0, 0x1.5bf0a8b145769p+1},
    {"exp", maths::exp, -0x1p+0, 0x1.78b56362cef38p-2},
    {"exp", maths::exp, 0x1p-1, 0x1.a61298e1e069cp+0},
    {"exp", maths::exp, 0x1.4p+3, 0x1.5829dcf95056p+14},
    {"exp", maths::exp, -0x1.4p+4, 0x1.1b48655f37267p-29},
    {"exp", maths::exp, 0x1.9p+6, 0x1.3494a9b171bf5p+144},
    {"exp", maths::exp, 0x1.62ep+9, 0x1.ef85a11e73f2dp+1023},
    {"exp", maths::exp, -0x1.5ep+9, 0x1.14f2b0fb9307fp-1010},
    {"exp", maths::exp, -0x1.72p+9, 0x0.0000000000055p-1022},
    {"exp", maths::exp, -0x1.748cccccccccdp+9, 0x0.0000000000001p-1022},
    {"exp", maths::exp, 0x1.b7cdfd9d7bdbbp-34, 0x1.000000006df38p+0},
    {"exp", maths::exp, 0x1.26bb1bbb55516p+1, 0x1.4000000000001p+3},
    {"log", maths::log, 0x1p+1, 0x1.62e42fefa39efp-1},
    {"log", maths::log, 0x1.8p+1, 0x1.193ea7aad030bp+0},
    {"log", maths::log, 0x1.4p+3, 0x1.26bb1bbb55516p+1},
    {"log", maths::log, 0x1.999999999999ap-4, -0x1.26bb1bbb55515p+1},
    {"log", maths::log, 0x1p-1, -0x1.62e42fefa39efp-1},
    {"log", maths::log, 0x1.000001ad7f29bp+0, 0x1.ad7f2847b6492p-24},
    {"log", maths::log, 0x1.fffeb074a771dp-1, -0x1.4f8bc681df714p-17},
    {"log", maths::log, 0x1.7e43c8800759cp+996, 0x1.5963447f87fb5p+9},
    {"log", maths::log, 0x1.56e1fc2f8f359p-997, -0x1.5963447f87fb5p+9},
    {"log", maths::log, 0x0.0000000000001p-1022, -0x1.74385446d71c3p+9},
    {"log", maths::log, 0x0.fffffffffffffp-1022, -0x1.6232bdd7abcd2p+9},
    {"log", maths::log, 0x1.0f0cf064dd592p+73, 0x1.95414621954fep+5},
    {"sin", maths::sin, 0x1.b7cdfd9d7bdbbp-34, 0x1.b7cdfd9d7bdbbp-34},
    {"sin", maths::sin, 0x0.0000000000001p-1022, 0x0.0000000000001p-1022},
    {"sin", maths::sin, 0x1p-1, 0x1.eaee8744b05fp-2},
    {"sin", maths::sin, 0x1p+0, 0x1.aed548f090ceep-1},
    {"sin", maths::sin, 0x1p+1, 0x1.d18f6ead1b446p-1},
    {"sin", maths::sin, 0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53},
    {"sin", maths::sin, -0x1p+2, 0x1.837b9dddc1eaep-1},
    {"sin", maths::sin, 0x1.9p+6, -0x1.03425b78c4db8p-1},
    {"sin", maths::sin, 0x1.86ap+16, 0x1.24daa9c527e96p-5},
    {"sin", maths::sin, 0x1.0f0cf064dd592p+73, -0x1.b453ab76bf397p-1},
    {"sin", maths::sin, 0x1.6ac5b262ca1ffp+849, 0x1p+0},
    {"sin", maths::sin, 0x1.fffffffffffffp+1023, 0x1.452fc98b34e97p-8},
    {"cos", maths::cos, 0x1.b7cdfd9d7bdbbp-34, 0x1p+0},
    {"cos", maths::cos, 0x0.0000000000001p-1022, 0x1p+0},
    {"cos", maths::cos, 0x1p-1, 0x1.c1528065b7d5p-1},
    {"cos", maths::cos, 0x1p+0, 0x1.14a280fb5068cp-1},
    {"cos", maths::cos, 0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54},
    {"cos", maths::cos, -0x1p+2, -0x1.4eaa606db24c1p-1},
    {"cos", maths::cos, 0x1.9p+6, 0x1.b981dbf665fdfp-1},
    {"cos", maths::cos, 0x1.86ap+16, -0x1.ffac3841b3da7p-1},
    {"cos", maths::cos, 0x1.0f0cf064dd592p+73, 0x1.0be2cef01c8f4p-1},
    {"cos", maths::cos, 0x1.6ac5b262ca1ffp+849, -0x1.14ae72e6ba22fp-61},
    {"cos", maths::cos, 0x1.fffffffffffffp+1023, -0x1.fffe62ecfab75p-1},
    {"tan", maths::tan, 0x1.b7cdfd9d7bdbbp-34, 0x1.b7cdfd9d7bdbbp-34},
    {"tan", maths::tan, 0x0.0000000000001p-1022, 0x0.0000000000001p-1022},
    {"tan", maths::tan, 0x1p-1, 0x1.17b4f5bf3474ap-1},
    {"tan", maths::tan, 0x1p+0, 0x1.8eb245cbee3a6p+0},
    {"tan", maths::tan, 0x1.921fb54442d18p+0, 0x1.d02967c31cdb5p+53},
    {"tan", maths::tan, -0x1p+2, -0x1.2866f9be4de13p+0},
    {"tan", maths::tan, 0x1.9p+6, -0x1.2ca74d62b5d38p-1},
    {"tan", maths::tan, 0x1.86ap+16, -0x1.250a9d503313dp-5},
    {"tan", maths::tan, 0x1.0f0cf064dd592p+73, -0x1.a0f79c1b6b257p+0},
    {"tan", maths::tan, 0x1.fffffffffffffp+1023, -0x1.4530cfe729484p-8},
    {"atan", maths::atan, 0x1.b7cdfd9d7bdbbp-34, 0x1.b7cdfd9d7bdbbp-34},
    {"atan", maths::atan, 0x0.0000000000001p-1022, 0x0.0000000000001p-1022},
    {"atan", maths::atan, 0x1p-2, 0x1.f5b75f92c80ddp-3},
    {"atan", maths::atan, 0x1p-1, 0x1.dac670561bb4fp-2},
    {"atan", maths::atan, 0x1p+0, 0x1.921fb54442d18p-1},
    {"atan", maths::atan, 0x1.8p+0, 0x1.f730bd281f69bp-1},
    {"atan", maths::atan, -0x1p+1, -0x1.1b6e192ebbe44p+0},
    {"atan", maths::atan, 0x1.4p+3, 0x1.789bd2c160054p+0},
    {"atan", maths::atan, 0x1.86ap+16, 0x1.921f0d7e968a8p+0},
    {"atan", maths::atan, 0x1.0f0cf064dd592p+73, 0x1.921fb54442d18p+0},
    {"atan", maths::atan, 0x1.fffffffffffffp+1023, 0x1.921fb54442d18p+0},
};

// Distance in units of the last place; both of one sign.
std::int64_t unites(double a, double b) {
    return std::abs(std::bit_cast<std::int64_t>(a) - std::bit_cast<std::int64_t>(b));
}

bool zero_negatif(double x) { return x == 0 && std::signbit(x); }

// A digest of the results of `fonction` on arguments of all signs and of sizes from 2^bas to 2^haut.
std::uint64_t empreinte_de(Fonction fonction, int bas, int haut) {
    std::mt19937_64 tirage(20261120);
    const auto largeur = static_cast<std::uint64_t>(haut - bas);
    std::uint64_t empreinte = 14695981039346656037u;
    for (int i = 0; i < 200000; ++i) {
        const std::uint64_t exposant = static_cast<std::uint64_t>(1023 + bas) + tirage() % largeur;
        const std::uint64_t bits = (tirage() & 0x800FFFFFFFFFFFFFu) | exposant << 52;
        const double y = fonction(std::bit_cast<double>(bits));
        const std::uint64_t resultat = std::isnan(y) ? 0 : std::bit_cast<std::uint64_t>(y);
        empreinte = (empreinte ^ resultat) * 1099511628211u;
    }
    return empreinte;
}

}  // namespace

TEST_CASE("maths: at most one unit of the last place from the correctly rounded value") {
    for (const Valeur& v : kValeurs) {
        CAPTURE(v.nom);
        CAPTURE(v.x);
        CHECK(unites(v.fonction(v.x), v.arrondie) <= 1);
    }
}

TEST_CASE("maths: what is exact stays exact") {
    CHECK(maths::exp(0) == 1);
    CHECK(maths::log(1) == 0);
    CHECK(maths::cos(0) == 1);
    CHECK(4 * maths::atan(1) == std::numbers::pi);
    CHECK(maths::atan(kInfini) == std::numbers::pi / 2);
    CHECK(maths::atan(-kInfini) == -std::numbers::pi / 2);
    for (const Fonction impaire : {maths::sin, maths::tan, maths::atan}) {
        CHECK(impaire(0) == 0);
        CHECK(zero_negatif(impaire(-0.0)));
        for (const double x : {1e-320, 0.3, 2.0, 50.0, 1e22}) CHECK(impaire(-x) == -impaire(x));
    }
}

TEST_CASE("maths: the ends of the ranges") {
    CHECK(maths::exp(709.782712893384) < kInfini);
    CHECK(maths::exp(709.782712893385) == kInfini);
    CHECK(maths::exp(-745.13321910194110) > 0);
    CHECK(maths::exp(-745.13321910194122) == 0);
    CHECK(maths::exp(kInfini) == kInfini);
    CHECK(maths::exp(-kInfini) == 0);
    CHECK(maths::log(kInfini) == kInfini);
    CHECK(maths::log(0) == -kInfini);
    CHECK(std::isnan(maths::log(-1)));
    for (const Fonction angle : {maths::sin, maths::cos, maths::tan}) {
        CHECK(std::isnan(angle(kInfini)));
        CHECK(std::isnan(angle(-kInfini)));
    }
    for (const Fonction fonction : kToutes) CHECK(std::isnan(fonction(kIndefini)));
}

TEST_CASE("maths: the same bits on every system") {
    CHECK(empreinte_de(maths::exp, -30, 10) == 1652612357568220477u);
    CHECK(empreinte_de(maths::log, -1022, 1023) == 261318938320951813u);
    CHECK(empreinte_de(maths::sin, -30, 1023) == 8827555257227548845u);
    CHECK(empreinte_de(maths::cos, -30, 1023) == 17932302181950912478u);
    CHECK(empreinte_de(maths::tan, -30, 1023) == 17477474445819273585u);
    CHECK(empreinte_de(maths::atan, -30, 70) == 11664685225261955284u);
}

TEST_CASE("maths: a result without bounds or without sense is one box in the sheet") {
    CHECK(calcule_neuf("A=EXP(709)\r\nLN(A)").ends_with("LN(A) = 709"));
    CHECK(boites().empty());
    CHECK(calcule_neuf("EXP(709.79)") == "EXP(709.79) = ");
    CHECK(boites() == Textes{"6 6 sur compile_f"});
    calcule_neuf("SERIEG(1,2000,2)");
    CHECK(boites() == Textes{"6 6 sur compile_f"});
    calcule_neuf("SUITEG(1,3,-2)");
    CHECK(boites() == Textes{"5 5 sur compile_f"});
    calcule_neuf("10^400");
    CHECK(boites() == Textes{"6 6 sur compile_exposant"});
}
