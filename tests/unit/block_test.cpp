// The loops over a block of values: each value has the bits that the procedure for one value gives it, by the loops for
// any processor and by those for the present one.
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "base/maths.hpp"
#include "functions/block.hpp"
#include "platform/platform.hpp"
#include "shell/calculation.hpp"
#include "state/context.hpp"
#include "state/sheet.hpp"
#include "support/program.hpp"

namespace {

using Valeurs = std::vector<double>;

struct Element {
    const char* nom;
    Genre genre;
    double (*une)(double);
};
constexpr Element kElements[] = {{"exp", Genre::exponentielle, maths::exp}, {"log", Genre::logarithme, maths::log},
                                 {"sin", Genre::sinus, maths::sin},         {"cos", Genre::cosinus, maths::cos},
                                 {"sqrt", Genre::racine, [](double x) { return std::sqrt(x); }}};

// The values of one operation over a block. What isn't finite is of no account, since the text reports it: a block with
// such a value is asked for value by value.
void compare_bloc(const Element& e, Jeu jeu, const Valeurs& x) {
    std::vector<double> cases(2 * kTailleBloc);
    const Operation operation{.genre = e.genre, .resultat = 1, .gauche = kCaseVariable};
    std::copy(x.begin(), x.end(), cases.begin());
    jeu_de_boucles = jeu;
    const bool finies = calcule_bloc(&operation, 1, cases.data(), x.size());
    bool attendues = true;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double attendu = e.une(x[i]);
        attendues = attendues && std::isfinite(attendu);
        const bool pareil = std::isnan(attendu) || std::bit_cast<std::uint64_t>(cases[kTailleBloc + i]) ==
                                                       std::bit_cast<std::uint64_t>(attendu);
        if (!pareil) FAIL_CHECK(e.nom << " of the bits " << std::bit_cast<std::uint64_t>(x[i]));
    }
    CHECK(finies == attendues);
}

void compare_partout(const Valeurs& x) {
    const Jeu habituel = jeu_de_boucles;
    for (const Jeu jeu : {Jeu::commun, Jeu::avx2})
        for (const Element& e : kElements)
            for (std::size_t i = 0; jeu_present(jeu) && i < x.size(); i += kTailleBloc)
                compare_bloc(e, jeu, Valeurs(x.begin() + static_cast<std::ptrdiff_t>(i),
                                             x.begin() + static_cast<std::ptrdiff_t>(std::min(i + kTailleBloc, x.size()))));
    jeu_de_boucles = habituel;
}

// Values on both sides of `x`, the closest ones first.
void voisines(Valeurs& liste, double x) {
    constexpr double kInfini = std::numeric_limits<double>::infinity();
    for (const double signe : {1.0, -1.0}) {
        double haut = signe * x, bas = signe * x;
        for (int i = 0; i < 40; ++i) {
            liste.push_back(haut);
            liste.push_back(bas);
            haut = std::nextafter(haut, kInfini);
            bas = std::nextafter(bas, -kInfini);
        }
    }
}

}  // namespace

TEST_CASE("a block has the bits of each value, at random") {
    std::mt19937_64 tirage(20261122);
    const std::pair<double, double> intervalles[] = {{-1, 1},     {0, 2},       {-10, 10},   {-800, 800},
                                                     {0.9, 1.1},  {-9000, 9000}, {1e-9, 1e-6}, {-1e7, 1e7}};
    for (const auto& [bas, haut] : intervalles) {
        std::uniform_real_distribution<double> ou(bas, haut);
        Valeurs x(40 * kTailleBloc);
        for (double& v : x) v = ou(tirage);
        compare_partout(x);
    }
    Valeurs bits(40 * kTailleBloc);   // any float, subnormal, infinite and undefined ones too
    for (double& v : bits) v = std::bit_cast<double>(tirage());
    compare_partout(bits);
}

TEST_CASE("a block has the bits of each value where the ways to compute it change") {
    Valeurs x;
    for (const double limite :
         {0.0, 0x1p-1074, 0x1p-1022, 0x1p-54, 0x1p-27, 0x1.6a09ep-27, 0x1p-26, 0x1.921fcp-1, 0.7853981633974483, 1.0,
          1 - 0x1p-4, 1 + 0x1.09p-4, 512.0, 709.782712893384, 745.1332191019411, 8192.0, 1e15, 1.7976931348623157e308})
        voisines(x, limite);
    for (int quart = 1; quart <= 40; ++quart) voisines(x, quart * 0.7853981633974483);
    // The words at which the reduction of angles takes another way, from their first to their last bits.
    for (const std::uint64_t mot : {0x400f6a7au, 0x4002d97cu, 0x4015fdbbu, 0x4015fdbcu, 0x4012d97cu, 0x401921fbu,
                                    0x401c463au, 0x401c463bu, 0x3ff921fbu, 0x400921fbu})
        for (std::uint64_t fin = 0; fin <= 0xffffffffu; fin += 0x1111111u)
            x.push_back(std::bit_cast<double>(mot << 32 | fin));
    compare_partout(x);
}

TEST_CASE("an area of many blocks has the sum of its trapezoids one by one") {
    for (const Jeu jeu : {Jeu::commun, Jeu::avx2}) {
        if (!jeu_present(jeu)) continue;
        programme_neuf();
        const Jeu habituel = std::exchange(jeu_de_boucles, jeu);
        const std::string texte = "AIRX(0,1,2700)\r\n3X+X^2";
        port.texte.pose_texte(std::string(texte));
        recalcul();
        jeu_de_boucles = habituel;
        double somme = 0;
        const double h = 1.0 / 2700;
        const auto f = [](double v) { return 3 * v + maths::exp(maths::log(v) * 2); };
        for (int k = 1; k <= 2700; ++k) {
            const double a = k == 1 ? 0 : f((k - 1) * h), b = f(k * h);
            somme += (a + b) / 2 * h;
        }
        CHECK(feuille.valeur_ligne(1) == somme);
        CHECK(moteur.valeur_variable[24] == 2700 * h);
    }
}
