// Integer parts and factorials, each statement with its report. Change no state but
// the error flag of a refused ANP or CNP.
#include "functions/functions.hpp"

#include <cstddef>

#include "base/maths.hpp"
#include "base/number.hpp"
#include "engine/number_text.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"

namespace {

constexpr Procedure kFactoriel{" sur factoriel"_fr, true};
constexpr Procedure kCIntx{" sur c_intx"_fr, true};
constexpr Procedure kIntx{" sur intx"_fr, true};
constexpr Procedure kMotsFrac{" sur frac"_fr, true};

// True for n below p: the error has no words.
bool refuse_denombrement() {
    if (!(moteur.l_argument1 < moteur.l_argument2)) return false;
    moteur.erreur_formule = true;
    note_faute_calcul(kChaineAmbigue);
    return true;
}

}  // namespace

double logarithme(double x) {
    if (x <= 0) echoue(kHorsDomaine);
    return maths::log(x);
}

double factoriel(std::int16_t n) noexcept {
    double resultat = 1;
    for (int i = 2; i <= n; ++i)
        Tente(kFactoriel, [&] { range(resultat, resultat * i, resultat); });
    return resultat;
}

std::string c_intx(double x) noexcept {
    std::string texte;
    Tente(kCIntx, [&] { texte = FormatNombre(x); });
    const std::size_t point = texte.find('.');
    if (point != std::string::npos) Tente(kCIntx, [&] { texte.resize(point); });
    if (point == 0) Tente(kCIntx, [&] { texte = "0"; });
    return texte;
}

double intx(double x) noexcept {
    double resultat = 0;
    Tente(kIntx, [&] { resultat = prefixe_numerique(c_intx(x)); });
    return resultat;
}

double frac(double x) noexcept {
    double resultat = 0;
    Tente(kMotsFrac, [&] {
        const std::string texte = texte_general(x);
        const std::size_t point = texte.find('.');
        if (point != std::string::npos)
            resultat = prefixe_numerique("0." + texte.substr(point + 1));
    });
    return resultat;
}

// FACT of a negative number is 0 and ends at once without a word.
Fin factorielle(double x, double& resultat) {
    if (x < 0) return Fin::immediate;
    Tente(kCompileF, [&] { resultat = factoriel(vers_16_tronque(x)); });
    return Fin::cloture;
}

// Product of the integers from n-p+1 to n.
Fin arrangements(double& resultat) {
    if (refuse_denombrement()) return Fin::immediate;
    const double n = moteur.l_argument1, p = moteur.l_argument2;
    std::int16_t debut = 0, fin = 0;
    Tente(kCompileF, [&] { debut = vers_16_arrondi(n - p + 1); });
    Tente(kCompileF, [&] { fin = vers_16_arrondi(n); });
    resultat = 1;
    for (int i = debut; i <= fin; ++i)
        Tente(kCompileF, [&] { range(resultat, resultat * i, resultat); });
    return Fin::cloture;
}

Fin combinaisons(double& resultat) {
    if (refuse_denombrement()) return Fin::immediate;
    const double n = moteur.l_argument1, p = moteur.l_argument2;
    Tente(kCompileF, [&] {
        const double fact_p = factoriel(vers_16_tronque(p));
        const double fact_n = factoriel(vers_16_tronque(n));
        const double fact_np = factoriel(vers_16_tronque(n - p));
        range(resultat, fact_n / fact_p / fact_np, fact_n, fact_p, fact_np);
    });
    return Fin::cloture;
}
