// The rows of the functions, and the search for a function by its name. Changes nothing.
#include "functions/table.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

#include "base/codepage.hpp"
#include "base/maths.hpp"
#include "functions/formulas.hpp"
#include "functions/inverse.hpp"
#include "functions/progressions.hpp"
#include "functions/sorted_data.hpp"
#include "functions/statistics.hpp"
#include "functions/user_function.hpp"
#include "state/context.hpp"

namespace {

// A formula, for both ways of evaluating; `F` takes x and an arithmetic.
template <class F>
constexpr Valeur formule(F) {
    return {[](double x, ArithmetiqueSurveillee& c) -> double { return F{}(x, c); },
            [](double x, ArithmetiqueSimple& c) -> double { return F{}(x, c); }};
}

// A procedure that takes x and the result, and answers how the call ends, with its bracket when it
// answers nothing.
template <class F>
constexpr Valeur procedure(F) {
    return {nullptr, nullptr, [](double x, double& resultat) {
                if constexpr (std::is_void_v<std::invoke_result_t<F, double, double&>>) {
                    F{}(x, resultat);
                    return Fin::cloture;
                } else {
                    return F{}(x, resultat);
                }
            }};
}

// The arguments for which `F` holds are refused with these words.
template <class F>
constexpr Domaine exclut(F, std::string_view mots, Fin fin = Fin::cloture) {
    return {[](double x, ArithmetiqueSurveillee& c) -> bool { return F{}(x, c); },
            [](double x, ArithmetiqueSimple& c) -> bool { return F{}(x, c); }, mots, fin};
}

constexpr auto kPositifSeulement = [](double x, auto&) { return x <= 0; };
constexpr auto kAuDelaDeUn = [](double x, auto&) { return !(std::fabs(x) <= 1); };
// The tangent refuses the exact quarter turn alone: 270 degrees pass. Kept: see the oddities,
// tangent-of-270.
constexpr auto kQuartDeTour = [](double x, auto& c) {
    return std::fabs(c.a_r(x)) == moteur.pi_valeur / 2;
};

using Table = std::array<LigneFonction, kNombreFonctions>;
constexpr Table kFonctions = {{
    {kPi, "PI", Lecture::nom_seul, procedure([](double, double& r) { r = moteur.pi_valeur; })},
    {kCos, "COS", Lecture::un, formule([](double x, auto& c) { return maths::cos(c.a_r(x)); })},
    {kSin, "SIN", Lecture::un, formule([](double x, auto& c) { return maths::sin(c.a_r(x)); })},
    {kTan, "TAN", Lecture::un, formule([](double x, auto& c) { return maths::tan(c.a_r(x)); }),
     exclut(kQuartDeTour, "Argument incorrect"_fr)},
    {kAcos, "ACOS", Lecture::un, formule([](double x, auto& c) { return arc_cosinus(x, c); }),
     exclut(kAuDelaDeUn, "Argument incorrect"_fr)},
    {kAsin, "ASIN", Lecture::un, formule([](double x, auto& c) { return arc_sinus(x, c); }),
     exclut(kAuDelaDeUn, "Argument incorrect"_fr)},
    {kAtan, "ATAN", Lecture::un, formule([](double x, auto& c) { return c.r_a(maths::atan(x)); })},
    {kAbs, "ABS", Lecture::un, formule([](double x, auto&) { return std::fabs(x); })},
    {kExp, "EXP", Lecture::un, formule([](double x, auto&) { return maths::exp(x); })},
    {kLn, "LN", Lecture::un, formule([](double x, auto&) { return maths::log(x); }),
     exclut(kPositifSeulement, "argument negatif ou nul"_fr)},
    {kLog, "LOG", Lecture::un, formule([](double x, auto&) { return maths::log(x) / maths::log(10.0); }),
     exclut(kPositifSeulement, "argument negatif ou nul"_fr)},
    {kSh, "SH", Lecture::un, formule([](double x, auto& c) { return sinus_hyperbolique(x, c); })},
    {kCh, "CH", Lecture::un, formule([](double x, auto& c) { return cosinus_hyperbolique(x, c); })},
    {kTh, "TH", Lecture::un, formule([](double x, auto& c) { return tangente_hyperbolique(x, c); })},
    // ATH, ASH and ACH are TH, SH and CH without conversion, and no inverse functions, whatever their names
    // say. Kept: see the oddities, hyperbolic-names.
    {kAth, "ATH", Lecture::un, formule([](double x, auto&) {
         return (maths::exp(x) - maths::exp(-x)) / (maths::exp(x) + maths::exp(-x));
     })},
    {kAsh, "ASH", Lecture::un, formule([](double x, auto&) { return (maths::exp(x) - maths::exp(-x)) / 2; })},
    {kAch, "ACH", Lecture::un, formule([](double x, auto&) { return (maths::exp(x) + maths::exp(-x)) / 2; })},
    {kInt, "INT", Lecture::un, procedure([](double x, double& r) { r = intx(x); })},
    {kFact, "FACT", Lecture::un, procedure([](double x, double& r) { return factorielle(x, r); })},
    {kFrac, "FRAC", Lecture::un, procedure([](double x, double& r) { r = frac(x); })},
    {kSqr, "SQR", Lecture::un, formule([](double x, auto& c) { return c.carre(x); })},
    // SQRT alone ends at once when it refuses. Kept: see the oddities, call-that-ends-at-once.
    {kSqrt, "SQRT", Lecture::un, formule([](double x, auto&) { return std::sqrt(x); }),
     exclut([](double x, auto&) { return x < 0; }, "argument négatif"_fr, Fin::immediate)},
    {kSqr3, "SQR3", Lecture::un, formule([](double x, auto&) { return racine_cubique(x); })},
    {kSerieG, "SERIEG", Lecture::trois, procedure([](double, double& r) { serie_geometrique(r); })},
    {kSerieA, "SERIEA", Lecture::trois, procedure([](double, double& r) { serie_arithmetique(r); })},
    {kSuiteG, "SUITEG", Lecture::trois, procedure([](double, double& r) { suite_geometrique(r); })},
    {kSuiteA, "SUITEA", Lecture::trois, procedure([](double, double& r) { suite_arithmetique(r); })},
    {kStatX, "STATX", Lecture::groupes, procedure([](double, double& r) { compile_statx(r); })},
    {kStatXY, "STATXY", Lecture::groupes, procedure([](double, double& r) { compile_statxy(r); })},
    {kAnp, "ANP", Lecture::deux, procedure([](double, double& r) { return arrangements(r); })},
    {kCnp, "CNP", Lecture::deux, procedure([](double, double& r) { return combinaisons(r); })},
    // The sheet does the work of these lines; the value is 0. Their names are in small letters, which no
    // symbol has: they are found only by the letters that a symbol holds. Kept: see the oddities,
    // words-that-hold-air.
    {kAir, "air", Lecture::trois, procedure([](double, double&) {}), {}, Place::au_milieu},
    {kInc, "inc", Lecture::trois, procedure([](double, double&) {}), {}, Place::au_milieu},
    {kFrancEuro, "FRANCEURO", Lecture::un, procedure([](double x, double& r) { r_franc_euro(r = x); })},
    {kEuroFranc, "EUROFRANC", Lecture::un, procedure([](double x, double& r) {
         r = x;
         Tente(kCompileF, [&] { r_euro_franc(r); });
     })},
    {kInvMat, "INVMAT", Lecture::un, procedure([](double, double&) { InversionMatrice(); })},   // the work matrix
    {kDetMat, "DETMAT", Lecture::un, procedure([](double, double& r) { Determinantmatrice(r); })},
    {kAlea, "ALEA", Lecture::nom_seul, procedure([](double, double& r) { r = tire_au_hasard(); })},
    {kResXY, "RESXY", Lecture::deux, procedure([](double, double& r) {
         r = ResXy(moteur.l_argument1, moteur.l_argument2);
     })},
    {kTriStatX, "TRISTATX", Lecture::nom_seul, procedure([](double, double&) { TriStatX(); })},
    // Without a definition the call ends where the report stands.
    {kFon, "FON", Lecture::un, procedure([](double x, double& r) {
         const bool connue = !moteur.nom_fonction.empty();
         fon(x, r);
         return connue ? Fin::cloture : Fin::immediate;
     })},
}};

constexpr bool dans_l_ordre(const Table& table) {
    int rang = 0;
    return std::all_of(table.begin(), table.end(), [&](const LigneFonction& f) { return f.numero == ++rang; });
}
static_assert(dans_l_ordre(kFonctions), "each number of Fonction has its row, in the order of the numbers");

static_assert(std::all_of(kFonctions.begin(), kFonctions.end(), [](const LigneFonction& f) {
    return f.nom.size() >= 2 && std::count_if(kFonctions.begin(), kFonctions.end(), [&](const LigneFonction& g) {
        return g.nom == f.nom; }) == 1;
}), "each function has a name of its own, of two letters at least");

static_assert(std::all_of(kFonctions.begin(), kFonctions.end(), [](const LigneFonction& f) {
    return f.lecture != Lecture::inconnue;
}), "each function says how its call is read");

static_assert(std::all_of(kFonctions.begin(), kFonctions.end(), [](const LigneFonction& f) {
    const bool formule = f.valeur.surveillee != nullptr && f.valeur.simple != nullptr;
    return formule != (f.valeur.procedure != nullptr) && (!formule || f.lecture == Lecture::un);
}), "each function has a formula of one argument or a procedure");

static_assert(std::all_of(kFonctions.begin(), kFonctions.end(), [](const LigneFonction& f) {
    const bool refuse = f.domaine.exclut_surveille != nullptr;
    return refuse == !f.domaine.mots.empty() && (!refuse || f.valeur.simple != nullptr);
}), "a formula that refuses arguments says so in words");

// The names alone, close together: a symbol is looked up among them all the time.
constexpr auto kNoms = [] {
    std::array<std::string_view, kNombreFonctions + 1> t{};
    for (const LigneFonction& f : kFonctions) t[static_cast<std::size_t>(f.numero)] = f.nom;
    return t;
}();

// For each first character, the rows with that name in ascending order, closed by 0: the search by
// equality looks at these alone.
constexpr auto kRangsParLettre = [] {
    std::array<std::array<std::int8_t, 16>, 256> t{};
    for (const LigneFonction& f : kFonctions) {
        auto& rangs = t[static_cast<unsigned char>(f.nom[0])];
        std::size_t n = 0;
        while (rangs[n] != 0) ++n;
        rangs[n] = static_cast<std::int8_t>(f.numero);
    }
    return t;
}();
static_assert(kNombreFonctions <= 127, "each function has a rank that fits the table of first letters");

// The names that a symbol may have in it, in capitals.
struct Milieu {
    Fonction numero;
    std::array<char, 8> mot;
    std::size_t taille;
};
constexpr auto kMilieux = [] {
    std::array<Milieu, static_cast<std::size_t>(std::count_if(
        kFonctions.begin(), kFonctions.end(),
        [](const LigneFonction& f) { return f.place == Place::au_milieu; }))> t{};
    std::size_t n = 0;
    for (const LigneFonction& f : kFonctions) {
        if (f.place != Place::au_milieu) continue;
        t[n] = {f.numero, {}, f.nom.size()};
        for (std::size_t i = 0; i < f.nom.size(); ++i) t[n].mot[i] = static_cast<char>(f.nom[i] - 'a' + 'A');
        ++n;
    }
    return t;
}();

// Whether the symbol has the first letter of such a name: numbers and most others don't. Looks at all of it, since
// where it would stop can't be foretold.
bool peut_avoir_un_milieu(std::string_view symbole) {
    static constexpr auto kCommence = [] {
        std::array<bool, 256> t{};
        for (const Milieu& m : kMilieux) t[static_cast<unsigned char>(m.mot[0])] = true;
        return t;
    }();
    bool peut = false;
    for (const char c : symbole) peut |= kCommence[static_cast<unsigned char>(c)];
    return peut;
}

// The first function of the table that the symbol has the letters of; 0 for none.
int nom_au_milieu(std::string_view symbole) {
    if (!peut_avoir_un_milieu(symbole)) return 0;
    for (const Milieu& m : kMilieux)
        for (std::size_t i = 0; i + m.taille <= symbole.size(); ++i)
            if (symbole[i] == m.mot[0] && std::equal(m.mot.begin() + 1, m.mot.begin() + static_cast<std::ptrdiff_t>(m.taille),
                                                     symbole.begin() + static_cast<std::ptrdiff_t>(i) + 1))
                return m.numero;
    return 0;
}

}  // namespace

const LigneFonction& ligne_fonction(int rang) { return kFonctions[static_cast<std::size_t>(rang) - 1]; }

int fonction_nommee(std::string_view symbole) {
    for (const std::int8_t rang : kRangsParLettre[static_cast<unsigned char>(symbole[0])]) {
        if (rang == 0) break;
        if (symbole == kNoms[static_cast<std::size_t>(rang)]) return rang;
    }
    return nom_au_milieu(symbole);
}
