// Tables numbered from 1: bounds, growth, what stays.
#include "base/table.hpp"

#include <doctest/doctest.h>

#include <string>

#include "state/matrices.hpp"
#include "unit/helpers.hpp"

TEST_CASE("table: indexes run from 1 and every other one fails") {
    Table<int> table(3);
    table(1) = 10;
    table(3) = 30;
    CHECK(table(1) == 10);
    CHECK(table(2) == 0);
    CHECK(table(3) == 30);
    for (const std::ptrdiff_t indice : {0, 4, -1, 1'000'000})
        CHECK(numero_defaillance([&] { table(indice) = 1; }) == 9);
    const Table<int>& fixe = table;
    CHECK(fixe(3) == 30);
    CHECK(numero_defaillance([&] { (void)fixe(4); }) == 9);
    CHECK(numero_defaillance([] { (void)Table<int>()(1); }) == 9);
}

TEST_CASE("table: a change of size keeps what fits") {
    Table<std::string> table(2);
    table(1) = "a";
    table(2) = "b";
    table.redimensionne(3);
    CHECK(table.taille() == 3);
    CHECK(table(2) == "b");
    CHECK(table(3).empty());
    table.redimensionne(1);
    CHECK(table(1) == "a");
    CHECK(numero_defaillance([&] { (void)table(2); }) == 9);
    table.ajoute("z");
    CHECK(table(2) == "z");
    table.libere();
    CHECK(table.taille() == 0);
}

TEST_CASE("table: the two indexes of a matrix each have their own bound") {
    TableMatrice m(2, 3);
    m(1, 3) = 13;
    m(2, 1) = 21;
    CHECK(m(1, 3) == 13);
    CHECK(m(2, 1) == 21);
    struct Place {
        int ligne, colonne;
    };
    for (const Place& p : {Place{0, 1}, Place{1, 0}, Place{3, 1}, Place{1, 4}, Place{-1, 2}})
        CHECK(numero_defaillance([&] { m(p.ligne, p.colonne) = 1; }) == 9);
    CHECK(numero_defaillance([] { (void)TableMatrice()(1, 1); }) == 9);
}
