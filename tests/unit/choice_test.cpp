// The generator of choices behind the random sheets.
#include <cstdint>
#include <set>

#include <doctest/doctest.h>

#include "property/choice.hpp"

TEST_CASE("choice: seeds that follow each other have no choice in common") {
    std::set<std::uint64_t> tires;
    for (std::uint64_t graine = 1; graine <= 50; ++graine) {
        Tirage tirage(graine);
        for (int i = 0; i < 100; ++i) tires.insert(tirage.suivant());
    }
    CHECK(tires.size() == 5000);
}

TEST_CASE("choice: a seed gives the same choices again") {
    Tirage un(7), deux(7);
    for (int i = 0; i < 100; ++i) CHECK(un.entre(1, 1000) == deux.entre(1, 1000));
}
