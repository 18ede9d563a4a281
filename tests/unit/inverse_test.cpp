// The inverse of a large matrix, whose rows are computed on several threads, and the threads themselves.
#include <doctest/doctest.h>

#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <thread>

#include "base/failure.hpp"
#include "functions/inverse.hpp"
#include "platform/side_by_side.hpp"
#include "state/matrices.hpp"

namespace {

constexpr int kOrdre = 15;   // shared among the cores

TableMatrice grande_matrice() {
    TableMatrice m(kOrdre, kOrdre);
    for (int i = 1; i <= kOrdre; ++i)
        for (int j = 1; j <= kOrdre; ++j) m(i, j) = (i * 7 + j * j * 3 + i * j) % 11 - 5 + i / 7.0;
    return m;
}

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

}  // namespace

TEST_CASE("inverse: a large one is, bit for bit, the signed minors over the determinant, whoever computed them") {
    const TableMatrice m = grande_matrice();
    TableMatrice inverse = m;
    procInverseMatrix(inverse, kOrdre);
    const double d = funcDetMat(m, kOrdre);
    REQUIRE(d != 0);
    int autres = 0;
    for (int i = 1; i <= kOrdre; ++i)
        for (int j = 1; j <= kOrdre; ++j) {
            const double mineur = funcDetMat(funcReduceMat(i, j, m, kOrdre), kOrdre - 1);
            autres += bits(inverse(j, i)) != bits((funcEstPaire(i + j) ? mineur : -mineur) / d);
        }
    CHECK(autres == 0);
}

TEST_CASE("side by side: each piece is done once, whatever the number of workers") {
    for (const int ouvriers : {1, 2, 4}) {
        CAPTURE(ouvriers);
        std::array<std::atomic<int>, 100> faits{};
        std::atomic<bool> arret = false;
        cote_a_cote(100, ouvriers, arret, [&](int piece, int ouvrier) {
            CHECK_MESSAGE(ouvrier < ouvriers, ouvrier);
            ++faits[static_cast<std::size_t>(piece)];
        });
        for (const auto& n : faits) CHECK(n == 1);
        CHECK(!arret);
    }
}

TEST_CASE("side by side: a failure stops the others and comes out once, behind those that gave way") {
    for (const int ouvriers : {1, 4}) {
        CAPTURE(ouvriers);
        std::atomic<bool> arret = false;
        std::atomic<int> finis = 0;
        int numero = 0;
        try {
            cote_a_cote(4, ouvriers, arret, [&](int piece, int) {
                if (piece == 3) echoue(kDepassement);
                while (ouvriers > 1 && !arret) std::this_thread::yield();
                if (arret) throw Arrete{};
                ++finis;
            });
        } catch (const Defaillance& d) {
            numero = d.numero;
        }
        CHECK(numero == kDepassement);
        CHECK(arret);
        CHECK(finis == (ouvriers > 1 ? 0 : 3));
    }
}
