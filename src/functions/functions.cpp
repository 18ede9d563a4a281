// The built-in functions. compile_f reads a call in the fixed protocol of brackets and commas and
// computes it; angles follow `modes`. Changes the registers of `moteur`.
#include "functions/functions.hpp"

#include <cmath>
#include <cstddef>
#include <string_view>

#include "base/maths.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/number_text.hpp"
#include "engine/reader.hpp"
#include "functions/formulas.hpp"
#include "functions/inverse.hpp"
#include "functions/progressions.hpp"
#include "functions/sorted_data.hpp"
#include "functions/statistics.hpp"
#include "functions/user_function.hpp"
#include "state/context.hpp"

namespace {

constexpr Procedure kConvAR{" sur conv_a_r"_fr, true};
constexpr Procedure kConvRA{" sur conv_r_a"_fr, true};
constexpr Procedure kFactoriel{" sur factoriel"_fr, true};
constexpr Procedure kCIntx{" sur c_intx"_fr, true};
constexpr Procedure kIntx{" sur intx"_fr, true};
constexpr Procedure kMotsFrac{" sur frac"_fr, true};

// How a call ends: with its closing bracket, or at once.
enum class Fin { cloture, immediate };

// The steps of a formula through the procedures that report their own failures; notes when one of
// them has already given an infinite value.
struct ArithmetiqueSurveillee {
    bool infini = false;
    double note(double x) {
        infini |= std::isinf(x);
        return x;
    }
    double a_r(double x) { return note(conv_a_r(x)); }
    double r_a(double x) { return note(conv_r_a(x)); }
    double carre(double x) { return note(::carre(x)); }
};

// Reads the second argument, and the third for functions of three; the first one is in l_valeur.
bool lis_arguments(int nombre) {
    moteur.l_argument1 = moteur.l_valeur;
    return lis_argument(moteur.l_argument2) && (nombre < 3 || lis_argument(moteur.l_argument3));
}

// Words of a function that refuses its argument.
std::string_view mots_refus(int fonction) {
    if (fonction == kSqrt) return "argument négatif"_fr;
    return fonction == kLn || fonction == kLog ? "argument negatif ou nul"_fr
                                               : "Argument incorrect"_fr;
}

// A function that has a formula. SQRT alone ends at once when it refuses.
Fin par_formule(int fonction, double x, double& resultat) {
    ArithmetiqueSurveillee calcul;
    if (hors_domaine(fonction, x, calcul)) {
        affiche_erreur_formule(mots_refus(fonction));
        return fonction == kSqrt ? Fin::immediate : Fin::cloture;
    }
    calcul.infini = false;
    Tente(kCompileF, [&] {
        resultat = formule_de(fonction, x, calcul);
        if (!std::isfinite(resultat))
            refuse_resultat(resultat, calcul.infini || std::isinf(x), std::isnan(x));
    });
    return Fin::cloture;
}

// FACT of a negative number is 0 and ends at once without a word.
Fin factorielle(double x, double& resultat) {
    if (x < 0) return Fin::immediate;
    Tente(kCompileF, [&] { resultat = factoriel(vers_16_tronque(x)); });
    return Fin::cloture;
}

void monnaie(int fonction, double x, double& resultat) {
    resultat = x;
    if (fonction == kFrancEuro)
        r_franc_euro(resultat);
    else
        Tente(kCompileF, [&] { r_euro_franc(resultat); });
}

// Product of the integers from n-p+1 to n.
void arrangements(double n, double p, double& resultat) {
    std::int16_t debut = 0, fin = 0;
    Tente(kCompileF, [&] { debut = vers_16_arrondi(n - p + 1); });
    Tente(kCompileF, [&] { fin = vers_16_arrondi(n); });
    resultat = 1;
    for (int i = debut; i <= fin; ++i)
        Tente(kCompileF, [&] { range(resultat, resultat * i, resultat); });
}

void combinaisons(double n, double p, double& resultat) {
    Tente(kCompileF, [&] {
        const double fact_p = factoriel(vers_16_tronque(p));
        const double fact_n = factoriel(vers_16_tronque(n));
        const double fact_np = factoriel(vers_16_tronque(n - p));
        range(resultat, fact_n / fact_p / fact_np, fact_n, fact_p, fact_np);
    });
}

// ANP and CNP. With n below p the error has no words and the call ends at once.
Fin denombrement(int fonction, double& resultat) {
    const double n = moteur.l_argument1, p = moteur.l_argument2;
    if (n < p) {
        moteur.erreur_formule = true;
        return Fin::immediate;
    }
    if (fonction == kAnp)
        arrangements(n, p, resultat);
    else
        combinaisons(n, p, resultat);
    return Fin::cloture;
}

// FON. Without a definition the call ends where the report stands.
Fin fonction_utilisateur(double x, double& resultat) {
    const bool connue = !moteur.nom_fonction.empty();
    fon(x, resultat);
    return connue ? Fin::cloture : Fin::immediate;
}

Fin plusieurs_arguments(int fonction, double& resultat) {
    const bool deux = fonction == kAnp || fonction == kCnp || fonction == kResXY;
    if (!lis_arguments(deux ? 2 : 3)) return Fin::immediate;
    switch (fonction) {
        case kAnp:
        case kCnp: return denombrement(fonction, resultat);
        case kResXY: resultat = ResXy(moteur.l_argument1, moteur.l_argument2); break;
        case kAir:
        case kInc: break;   // the sheet does the work of these lines; the value is 0
        default: progression(fonction, resultat);
    }
    return Fin::cloture;
}

// The value of function `fonction` on its first argument.
Fin calcule(int fonction, double& resultat) {
    const double x = moteur.l_valeur;
    if (a_une_formule(fonction)) return par_formule(fonction, x, resultat);
    switch (fonction) {
        case kInt: resultat = intx(x); break;
        case kFact: return factorielle(x, resultat);
        case kFrac: resultat = frac(x); break;
        case kFrancEuro: case kEuroFranc: monnaie(fonction, x, resultat); break;
        case kInvMat: InversionMatrice(); break;   // its result is the work matrix
        case kDetMat: Determinantmatrice(resultat); break;
        case kFon: return fonction_utilisateur(x, resultat);
        case kStatX: compile_statx(resultat); return Fin::immediate;
        case kStatXY: compile_statxy(resultat); return Fin::immediate;
        default: return plusieurs_arguments(fonction, resultat);
    }
    return Fin::cloture;
}

// PI, ALEA and TRISTATX take no brackets.
double sans_argument(int fonction) {
    double resultat = 0;
    if (fonction == kPi)
        resultat = moteur.pi_valeur;
    else if (fonction == kAlea)
        resultat = static_cast<double>(moteur.generateur() >> 11) * 0x1p-53;
    else
        TriStatX();
    lis_symbole();
    return resultat;
}

}  // namespace

double compile_f() noexcept {
    const std::int16_t fonction = moteur.type_f;
    if (fonction == kPi || fonction == kAlea || fonction == kTriStatX)
        return sans_argument(fonction);
    lis_symbole();
    if (moteur.l_symbole != "(") {
        affiche_erreur_formule("Manque une ("_fr);
        return 0;
    }
    lis_symbole();
    moteur.l_valeur = Compile_un_argument();
    moteur.type_f = fonction;
    double resultat = 0;
    if (calcule(fonction, resultat) == Fin::immediate) return resultat;
    if (moteur.l_symbole == ")")
        lis_symbole();
    else
        affiche_erreur_formule("manque )"_fr);
    return resultat;
}

bool lis_argument(double& registre) noexcept {
    if (moteur.l_symbole != ",") {
        affiche_erreur_formule("Manque une ,"_fr);
        return false;
    }
    const std::int16_t garde = moteur.type_f;
    lis_symbole();
    registre = Compile_un_argument();
    moteur.type_f = garde;
    return true;
}

double conv_a_r(double x) noexcept {
    double resultat = 0;
    Tente(kConvAR, [&] { range(resultat, ArithmetiqueSimple().a_r(x), x); });
    return resultat;
}

double conv_r_a(double x) noexcept {
    double resultat = 0;
    Tente(kConvRA, [&] { range(resultat, ArithmetiqueSimple().r_a(x), x); });
    return resultat;
}

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
