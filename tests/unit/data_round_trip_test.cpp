// Numbers that leave a sheet and come back are the same to the bit, in both conventions, from a file and through
// the lines of a sheet.
#include <doctest/doctest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "exchange/data_file.hpp"
#include "exchange/data_lines.hpp"
#include "exchange/data_reader.hpp"
#include "exchange/sheet_report.hpp"
#include "helpers.hpp"
#include "sheet/recalculation.hpp"

namespace {

using Hasard = std::mt19937_64;

// Any finite number; half of them such as people write.
double nombre_au_hasard(Hasard& hasard) {
    if (hasard() % 2 == 0) return static_cast<double>(static_cast<std::int64_t>(hasard() % 2'000'001) - 1'000'000) / 1000;
    double x = 0;
    do x = std::bit_cast<double>(hasard());
    while (!std::isfinite(x));
    return x;
}

TableDonnees table_au_hasard(Hasard& hasard, std::size_t colonnes, std::size_t lignes) {
    TableDonnees table;
    for (std::size_t c = 0; c < colonnes; ++c) {
        table.titres.push_back("grandeur " + std::to_string(c + 1));
        table.colonnes.emplace_back();
        for (std::size_t l = 0; l < lignes; ++l) table.colonnes.back().push_back(nombre_au_hasard(hasard));
    }
    return table;
}

bool memes_bits(const std::vector<std::vector<double>>& a, const std::vector<std::vector<double>>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t c = 0; c < a.size(); ++c) {
        if (a[c].size() != b[c].size()) return false;
        for (std::size_t l = 0; l < a[c].size(); ++l)
            if (std::bit_cast<std::uint64_t>(a[c][l]) != std::bit_cast<std::uint64_t>(b[c][l])) return false;
    }
    return true;
}

// The numbers that a sheet of these lines holds, once it is calculated.
std::vector<std::vector<double>> par_la_feuille(const std::string& lignes) {
    const std::vector<DonneesDeFeuille> donnees = donnees_de(rapport_de(lignes, false));
    return donnees.size() == 1 ? donnees.front().table.colonnes : std::vector<std::vector<double>>();
}

}  // namespace

TEST_CASE("10,000 random tables come back to the bit in both conventions") {
    Hasard hasard(20261122);
    int egales = 0;
    for (int i = 0; i < 10'000; ++i) {
        const TableDonnees table = table_au_hasard(hasard, 1 + hasard() % 5, 1 + hasard() % 8);
        for (const Convention convention : {Convention::virgule, Convention::point}) {
            std::string refus;
            const auto lues = lis_donnees(fichier_de_donnees(table, convention), refus);
            CAPTURE(fichier_de_donnees(table, convention));
            REQUIRE_MESSAGE(lues.has_value(), vers_utf8(refus));
            const bool meme = memes_bits(lues->table.colonnes, table.colonnes) && lues->table.titres == table.titres;
            if (!meme) CHECK(meme);
            egales += meme;
        }
    }
    CHECK(egales == 20'000);
}

TEST_CASE("random tables come back to the bit from the lines of a sheet") {
    installe_port_memoire();
    reinitialise_calcul();
    Hasard hasard(7);
    std::string refus;
    for (int i = 0; i < 300; ++i) {
        const std::size_t colonnes = 1 + hasard() % 4;
        const TableDonnees table = table_au_hasard(hasard, colonnes, 1 + hasard() % 6);
        const auto lues = lis_donnees(fichier_de_donnees(table, Convention::virgule), refus);
        REQUIRE(lues.has_value());
        const auto matrice = lignes_de_feuille(*lues, "DEFMA", refus);
        REQUIRE_MESSAGE(matrice.has_value(), vers_utf8(refus));
        CAPTURE(vers_utf8(*matrice));
        CHECK(memes_bits(par_la_feuille(*matrice), table.colonnes));
    }
}

TEST_CASE("lists come back to the bit from the lines of a sheet") {
    installe_port_memoire();
    reinitialise_calcul();
    const std::vector<double> x = {12.5, -3, 0.1, 1e-9, 1234567.875, 0, 1.0 / 3};
    const std::vector<double> y = {1, 2.5, -7, 4e6, 0.3, -0.25, 2.0 / 7};
    const DonneesLues lues{{{"a", "b"}, {x, y}}, {1, 2}, {}, 1, ','};
    std::string refus;
    CHECK(memes_bits(par_la_feuille(*lignes_de_feuille(lues, "STATX 1", refus)), {x}));
    CHECK(memes_bits(par_la_feuille(*lignes_de_feuille(lues, "STATXY", refus)), {x, y}));
}
