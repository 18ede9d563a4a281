// One statement, one box, go on: Tente, the words of the box, and the flag of the formula.
#include "base/failure.hpp"

#include <doctest/doctest.h>

#include <new>
#include <stdexcept>
#include <string>

#include "base/number.hpp"
#include "state/variables.hpp"
#include "unit/helpers.hpp"

namespace {

constexpr Procedure kAvecBlanc{" sur carré"_fr, true};
constexpr Procedure kSansBlanc{"sur fon"_fr, false};
constexpr Procedure kNumeroSeul{" sur evalue_formule"_fr, true, true};

}  // namespace

TEST_CASE("failure: a statement that ends well shows nothing") {
    int fait = 0;
    CHECK(Tente(kAvecBlanc, [&] { fait = 1; }));
    CHECK(fait == 1);
    CHECK(boites().empty());
    CHECK_FALSE(formule_en_erreur());
}

TEST_CASE("failure: the box has the number twice and the procedure's own words") {
    CHECK_FALSE(Tente(kAvecBlanc, [] { echoue(6); }));
    CHECK_FALSE(Tente(kSansBlanc, [] { echoue(28); }));
    CHECK_FALSE(Tente(kNumeroSeul, [] { echoue(11); }));
    CHECK(boites() == Textes{"6 6 sur carré", "28 28sur fon", " 11 sur evalue_formule"});
}

TEST_CASE("failure: only the procedures that mark it set the flag of the formula") {
    Tente(kSansBlanc, [] { echoue(53); });
    CHECK_FALSE(formule_en_erreur());
    Tente(kAvecBlanc, [] { echoue(53); });
    CHECK(formule_en_erreur());
}

TEST_CASE("failure: the next statement runs, with what the failed one left") {
    double x = 1;
    Tente(kAvecBlanc, [&] { range(x, x * 1e308 * 10, x); });
    Tente(kAvecBlanc, [&] { range(x, x * 2, x); });
    bool encore = false;
    Tente(kAvecBlanc, [&] { encore = true; });
    CHECK(std::isinf(x));
    CHECK(encore);
    CHECK(boites() == Textes{"6 6 sur carré"});
}

TEST_CASE("failure: memory and the library's limits are failure 7") {
    Tente(kAvecBlanc, [] { throw std::bad_alloc(); });
    Tente(kAvecBlanc, [] { throw std::length_error("too long"); });
    CHECK(boites() == Textes{"7 7 sur carré", "7 7 sur carré"});
}

TEST_CASE("failure: a failure inside is the inner procedure's alone") {
    const bool dehors = Tente(kSansBlanc, [] { Tente(kAvecBlanc, [] { echoue(9); }); });
    CHECK(dehors);
    CHECK(boites() == Textes{"9 9 sur carré"});
}
