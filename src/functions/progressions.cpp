// Progressions and money. The roundings work on the text of the amount, digit by digit, and keep
// their known limits: users' sheets depend on the sums that they give. Change no state.
#include "functions/progressions.hpp"

#include <cmath>
#include <cstddef>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/maths.hpp"
#include "base/number.hpp"
#include "functions/functions.hpp"
#include "state/context.hpp"

namespace {

constexpr Procedure kArrondi{"sur arrondi"_fr, true};
constexpr Procedure kRFrancEuro{"sur r_franc_euro"_fr, true};

constexpr double kFrancsPourUnEuro = 6.55957;

// Three decimals, rounded up by 5 when the third asks for it. Their leading zeros go, and a carry out of
// them is lost. Kept: see the oddities, money-carry.
std::string trois_decimales(std::string_view decimales) {
    const std::string_view trois = decimales.substr(0, 3);
    if (trois[2] <= '4') return std::string(trois);
    return chiffres(static_cast<long long>(prefixe_numerique(trois)) + 5);
}

}  // namespace

void serie_arithmetique(double& resultat) noexcept {
    const double a = moteur.l_argument1, n = moteur.l_argument2, r = moteur.l_argument3;
    Tente(kCompileF, [&] { range(resultat, a * n + (n - 1) * n * r / 2, a, n, r); });
}

void suite_arithmetique(double& resultat) noexcept {
    const double a = moteur.l_argument1, n = moteur.l_argument2, r = moteur.l_argument3;
    Tente(kCompileF, [&] { range(resultat, (n - 1) * r + a, a, n, r); });
}

void suite_geometrique(double& resultat) noexcept {
    const double a = moteur.l_argument1, n = moteur.l_argument2, r = moteur.l_argument3;
    Tente(kCompileF, [&] { range(resultat, maths::exp(logarithme(r) * (n - 1)) * a, a, n, r); });
}

void serie_geometrique(double& resultat) noexcept {
    const double a = moteur.l_argument1, n = moteur.l_argument2, r = moteur.l_argument3;
    if (r == 1) {
        Tente(kCompileF, [&] { range(resultat, a * n, a, n); });
        return;
    }
    double e = 0;
    Tente(kCompileF, [&] { range(e, maths::exp(logarithme(r) * n), n, r); });
    Tente(kCompileF, [&] { range(resultat, (e - 1) * a / (r - 1), e, a, r); });
}

void r_franc_euro(double& montant) noexcept {
    Tente(kRFrancEuro, [&] { range(montant, montant / kFrancsPourUnEuro, montant); });
    arrondi(montant);
}

void r_euro_franc(double& montant) {
    range(montant, montant * kFrancsPourUnEuro, montant);
    montant = prefixe_numerique(Forme_montant(montant));
}

std::string Forme_montant(double montant) {
    std::string texte = texte_fixe(montant, 2);
    if (texte.ends_with(".00")) texte.resize(texte.size() - 3);
    return texte;
}

void arrondi(double& montant) noexcept {
    std::string s, d;
    if (!Tente(kArrondi, [&] { s = texte_general(montant); })) return;
    const std::size_t point = s.find('.');
    if (point == std::string::npos) return;
    Tente(kArrondi, [&] {
        d = s.substr(point + 1);
        if (d.empty()) d = "00";
        if (s.size() - point - 1 >= 3) d = trois_decimales(std::string_view(s).substr(point + 1));
    });
    const double k = std::fabs(intx(montant));
    if (d.size() == 1) Tente(kArrondi, [&] { d += '0'; });
    Tente(kArrondi, [&] {
        range(montant, prefixe_numerique(std::string_view(d).substr(0, 2)) / 100 + k, k);
    });
    if (s.front() == '-') montant = -montant;
}
