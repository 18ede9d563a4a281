// The rows of the functions' words. Changes nothing.
#include "verification/function_words.hpp"

#include <algorithm>
#include <cstddef>

#include "base/codepage.hpp"

namespace {

using Table = std::array<MotsFonction, kNombreFonctions>;
constexpr Table kMots = {{
    {kPi, "pi", "", {}},
    {kCos, "cosinus de", "fin cosinus", {}},
    {kSin, "sinus de", "fin sinus", {}},
    {kTan, "tangente de", "fin tangente", {}},
    {kAcos, "arc cosinus de", "fin arc cosinus", {}},
    {kAsin, "arc sinus de", "fin arc sinus", {}},
    {kAtan, "arc tangente de", "fin arc tangente", {}},
    {kAbs, "valeur absolue de", "fin valeur absolue", {}},
    {kExp, "exponentielle de", "fin exponentielle", {}},
    {kLn, "logarithme népérien de"_fr, "fin logarithme", {}},
    {kLog, "logarithme décimal de"_fr, "fin logarithme", {}},
    {kSh, "sinus hyperbolique de", "fin sinus hyperbolique", {}},
    {kCh, "cosinus hyperbolique de", "fin cosinus hyperbolique", {}},
    {kTh, "tangente hyperbolique de", "fin tangente hyperbolique", {}},
    // These three take their value as it is, whatever the angle unit.
    {kAth, "tangente hyperbolique du nombre", "fin tangente hyperbolique", {}},
    {kAsh, "sinus hyperbolique du nombre", "fin sinus hyperbolique", {}},
    {kAch, "cosinus hyperbolique du nombre", "fin cosinus hyperbolique", {}},
    {kInt, "partie entière de"_fr, "fin partie entière"_fr, {}},
    {kFact, "factorielle de", "fin factorielle", {}},
    {kFrac, "partie décimale de"_fr, "fin partie décimale"_fr, {}},
    {kSqr, "carré de"_fr, "fin carré"_fr, {}},
    {kSqrt, "racine carrée de"_fr, "fin racine"_fr, {}},
    {kSqr3, "racine cubique de", "fin racine", {}},
    {kSerieG, "série géométrique de premier terme"_fr, "fin série"_fr, {"nombre de termes", "raison"}},
    {kSerieA, "série arithmétique de premier terme"_fr, "fin série"_fr, {"nombre de termes", "raison"}},
    {kSuiteG, "suite géométrique de premier terme"_fr, "fin suite", {"rang", "raison"}},
    {kSuiteA, "suite arithmétique de premier terme"_fr, "fin suite", {"rang", "raison"}},
    // Of a data set: its values and how often each counts, and the word between two groups.
    {kStatX, "statistiques de", "fin statistiques", {"effectif", "puis"}},
    {kStatXY, "statistiques des couples", "fin statistiques", {"effectif", "puis"}},
    {kAnp, "arrangements de", "fin arrangements", {"objets par", ""}},
    {kCnp, "combinaisons de", "fin combinaisons", {"objets par", ""}},
    {kAir, "aire de", "fin aire", {"jusqu'à"_fr, "nombre de trapèzes"_fr}},
    {kInc, "tableau à partir de"_fr, "fin tableau", {"pas", "nombre de valeurs"}},
    {kFrancEuro, "francs en euros de", "fin euros", {}},
    {kEuroFranc, "euros en francs de", "fin francs", {}},
    {kInvMat, "inverse de", "fin inverse", {}},
    {kDetMat, "déterminant de"_fr, "fin déterminant"_fr, {}},
    {kAlea, "nombre au hasard", "", {}},
    {kResXY, "somme des carrés des écarts à la droite de pente"_fr, "fin somme", {"ordonnée"_fr, ""}},
    {kTriStatX, "valeurs triées"_fr, "", {}},
    {kFon, "fonction de", "fin fonction", {}},
}};

constexpr bool complete(const Table& table) {
    int rang = 0;
    return std::ranges::all_of(table, [&](const MotsFonction& m) {
        return m.numero == ++rang && !m.debut.empty();
    });
}
static_assert(complete(kMots), "each function has its words, in the order of the numbers");

}  // namespace

const MotsFonction& mots_fonction(int rang) { return kMots[static_cast<std::size_t>(rang) - 1]; }
