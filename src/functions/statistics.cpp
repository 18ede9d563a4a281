// Reads the groups of a data set, sums them and computes means, deviations and regression lines.
// Changes the variables of the sheet in `moteur`, and the tables of `statistiques`.
#include "functions/statistics.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/reader.hpp"
#include "functions/functions.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/formula_error.hpp"
#include "state/noted_data.hpp"

namespace {

constexpr Procedure kSommeX{" sur statx"_fr, true};
constexpr Procedure kSommeXY{" sur statxy"_fr, true};
constexpr Procedure kEcarts{" sur Resxy"_fr, true};

// Failed distances after which ResXy gives up: each of them has shown its box.
constexpr int kRefusMaximum = 32767;

// Marks the variables of these letters as having a value.
void definit(std::string_view lettres) {
    for (const char c : lettres)
        moteur.variable_definie[static_cast<std::size_t>(rang_lettre(c))] = true;
}

void met_a_zero(std::string_view lettres) {
    for (const char c : lettres) variable(c) = 0;
}

// One statement: adds `x` times `facteur` to the variable of a letter, and marks it.
void ajoute_somme(const Procedure& procedure, char lettre, double x, double facteur) {
    double& somme = variable(lettre);
    Tente(procedure, [&] { range(somme, somme + x * facteur, somme, x, facteur); });
    definit({&lettre, 1});
}

// Makes the frequency total the upper bound of a table.
void redimensionne(const Procedure& procedure, TableRepetee& table) {
    Tente(procedure, [&] { table.redimensionne(indice_table(variable('N'))); });
}

// The indexes that a group fills: the last ones up to the frequency total.
struct Bornes {
    std::int32_t debut = 1;
    std::int32_t fin = 0;
};

// Bounds of a group; none when one of them can't be an index.
Bornes bornes_groupe(const Procedure& procedure, double effectif) {
    Bornes bornes;
    Tente(procedure, [&] {
        const double total = variable('N');
        bornes = {indice_table(total - effectif + 1), indice_table(total)};
    });
    return bornes;
}

// Stores a value at the indexes of its group. A table that could not be made as long as they ask
// stays as it is.
void remplit(const Procedure& procedure, TableRepetee& table, double x, Bornes bornes) {
    Tente(procedure, [&] {
        if (bornes.fin == table.taille()) table.remplit(bornes.debut, x);
    });
}

// Reads "," and a frequency. False, and reported, when it is missing or negative.
bool lis_effectif(double& registre) {
    if (!lis_argument(registre)) return false;
    if (!(registre < 0)) return true;
    affiche_erreur_calcul("effectif négatif"_fr);
    return false;
}

// Root of the mean of the squares less the square of the mean. A failure leaves `cible` as it was.
void range_ecart_type(double& cible, double carres, double effectif, double moyenne) {
    double moyenne_carres = 0;
    range_quotient(moyenne_carres, carres, effectif);
    const double carre_moyenne = carre(moyenne);
    double variance = 0;
    range(variance, moyenne_carres - carre_moyenne, moyenne_carres, carre_moyenne);
    if (variance < 0) echoue(kHorsDomaine);
    cible = std::sqrt(variance);
}

// Quotient of a regression: 0 when the divisor is 0. `operandes` are those of the dividend.
template <class... Operande>
void range_quotient_ou_zero(double& cible, double dividende, double diviseur,
                            Operande... operandes) {
    if (diviseur == 0)
        cible = 0;
    else
        range(cible, dividende / diviseur, diviseur, operandes...);
}

// X and Y, then E and F; all 0 for a frequency total of 0.
void calcule_moyennes() {
    const double n = variable('N');
    const auto moyenne = [n](char lettre, double somme) {
        Tente(kCompileF, [&] { range_quotient_ou_zero(variable(lettre), somme, n, somme); });
    };
    const auto ecart_type = [n](char lettre, double carres, double valeur_moyenne) {
        Tente(kCompileF, [&] {
            if (n == 0)
                variable(lettre) = 0;
            else
                range_ecart_type(variable(lettre), carres, n, valeur_moyenne);
        });
    };
    moyenne('X', variable('S'));
    moyenne('Y', variable('T'));
    ecart_type('E', variable('V'), variable('X'));
    ecart_type('F', variable('U'), variable('Y'));
    // Y is left unmarked: the result lines show the mean, but a formula that reads Y gets it only when the
    // sheet has assigned it. Kept: see the oddities, mean-of-y.
    definit("XEFT");
}

// A and B: regression of Y on X.
void calcule_droite_y() {
    const double n = variable('N'), x = variable('X'), y = variable('Y');
    const double v = variable('V'), w = variable('W');
    double d = 0;
    Tente(kCompileF, [&] {
        const double x2 = carre(x);
        range(d, v - x2 * n, v, x2, n);
    });
    Tente(kCompileF, [&] { range_quotient_ou_zero(variable('A'), w - n * x * y, d, w, n, x, y); });
    Tente(kCompileF, [&] { range_quotient_ou_zero(variable('B'), y * v - x * w, d, y, v, x, w); });
    definit("AB");
}

// C and D: regression of X on Y, written as Y = C X + D.
void calcule_droite_x() {
    const double n = variable('N'), x = variable('X'), y = variable('Y');
    const double u = variable('U'), w = variable('W');
    double d = 0;
    Tente(kCompileF, [&] { range(d, w - n * x * y, w, n, x, y); });
    Tente(kCompileF, [&] {
        const double y2 = d == 0 ? 0 : carre(y);
        range_quotient_ou_zero(variable('C'), u - y2 * n, d, u, y2, n);
    });
    Tente(kCompileF, [&] { range_quotient_ou_zero(variable('D'), y * w - x * u, d, y, w, x, u); });
    definit("CD");
}

// Q and R: the correlation, with the sign of A.
void calcule_correlation() {
    const double a = variable('A'), c = variable('C');
    Tente(kCompileF, [&] { range_quotient_ou_zero(variable('Q'), a, c, a); });
    const double q = variable('Q');
    Tente(kCompileF, [&] {
        if (q < 0) echoue(kHorsDomaine);
        variable('R') = a < 0 ? -std::sqrt(q) : std::sqrt(q);
    });
    definit("QR");
}

// One statement of ResXy: adds the squared distance of pair `k`, which it leaves in `terme`. False
// when it failed.
bool ajoute_distance(double& somme, double a, double b, double k, double& terme) {
    bool carre_fini = true;
    const bool range_faite = Tente(kEcarts, [&] {
        const auto indice = static_cast<std::ptrdiff_t>(k);
        const double y = statistiques.table_y(indice), x = statistiques.table_x(indice);
        const double ecart = y - (a * x + b);
        terme = carre(ecart);
        carre_fini = std::isfinite(terme) || !std::isfinite(ecart);
        if (std::isfinite(ecart))  // then an infinite square has already been told
            range(somme, somme + terme, somme, terme);
        else
            range(somme, somme + terme, somme, y, a, x, b);
    });
    return range_faite && carre_fini;
}

// Adds a finite `terme` that is not negative `fois` times, to the bit what one addition after the
// other gives. Between two powers of 2 every addition but the first moves the sum by the same step,
// so it is enough to add at their ends. Stops in front of an overflow; gives the additions made.
double ajoute_repete(double& somme, double terme, double fois) {
    for (double fait = 0; fait < fois;) {
        const double avant = somme, apres = avant + terme;
        if (apres == avant) return fois;
        if (!std::isfinite(apres)) return fait;
        somme = apres;
        fait += 1;
        if (avant == 0 || std::ilogb(avant) != std::ilogb(apres)) continue;
        const double haut =
            std::min(std::ldexp(1.0, std::ilogb(apres) + 1), std::numeric_limits<double>::max());
        const double pas = (apres + terme) - apres;
        const double saut = std::min(fois - fait, std::floor((haut - apres) / pas) - 1);
        if (saut <= 0) continue;
        somme += saut * pas;
        fait += saut;
    }
    return fois;
}

// Number of pairs after pair `k`, up to `dernier`, that are the same pair.
double paires_egales(double k, double dernier) {
    const auto indice = static_cast<std::ptrdiff_t>(k);
    const std::int32_t fin =
        std::min(statistiques.table_x.fin_plage(indice), statistiques.table_y.fin_plage(indice));
    return std::min<double>(fin, std::floor(dernier)) - k;
}

}  // namespace

void StatX() noexcept {
    const double x = moteur.l_argument1, effectif = moteur.l_argument2;
    note_groupe(x, 0, effectif);
    ajoute_somme(kSommeX, 'P', 1, 1);
    ajoute_somme(kSommeX, 'S', x, effectif);
    ajoute_somme(kSommeX, 'N', effectif, 1);
    redimensionne(kSommeX, statistiques.table_x);
    remplit(kSommeX, statistiques.table_x, x, bornes_groupe(kSommeX, effectif));
    ajoute_somme(kSommeX, 'V', carre(x), effectif);
}

void statxy() noexcept {
    const double x = moteur.l_argument1, y = moteur.l_argument2, effectif = moteur.l_argument3;
    note_groupe(x, y, effectif);
    ajoute_somme(kSommeXY, 'P', 1, 1);
    ajoute_somme(kSommeXY, 'S', x, effectif);
    ajoute_somme(kSommeXY, 'T', y, effectif);
    ajoute_somme(kSommeXY, 'N', effectif, 1);
    redimensionne(kSommeXY, statistiques.table_x);
    redimensionne(kSommeXY, statistiques.table_y);
    const Bornes bornes = bornes_groupe(kSommeXY, effectif);
    remplit(kSommeXY, statistiques.table_x, x, bornes);
    remplit(kSommeXY, statistiques.table_y, y, bornes);
    ajoute_somme(kSommeXY, 'V', carre(x), effectif);
    ajoute_somme(kSommeXY, 'U', carre(y), effectif);
    double& produits = variable('W');
    Tente(kSommeXY,
          [&] { range(produits, produits + x * y * effectif, produits, x, y, effectif); });
    definit("W");
}

double ResXy(double a, double b) noexcept {
    const double dernier = variable('N');
    double somme = 0, terme = 0;
    int refus = 0;
    for (double k = 1; k <= dernier && refus < kRefusMaximum; k += 1) {
        if (!ajoute_distance(somme, a, b, k, terme)) {
            ++refus;
            continue;
        }
        // The same pair again: nothing can move a sum that is no longer finite.
        const double egales = paires_egales(k, dernier);
        k += std::isfinite(somme) ? ajoute_repete(somme, terme, egales) : egales;
    }
    return somme;
}

void compile_statx(double& resultat) noexcept {
    resultat = 0;
    moteur.l_argument1 = moteur.l_valeur;
    if (!lis_effectif(moteur.l_argument2)) return;
    met_a_zero("SNVP");
    note_debut_de_groupes(false);
    StatX();
    double groupes = 1;
    while (moteur.l_symbole != ")") {
        if (!lis_argument(moteur.l_argument1)) return;
        if (!lis_effectif(moteur.l_argument2)) return;
        StatX();
        groupes += 1;
    }
    Tente(kCompileF, [] { range_quotient(variable('X'), variable('S'), variable('N')); });
    Tente(kCompileF,
          [] { range_ecart_type(variable('E'), variable('V'), variable('N'), variable('X')); });
    definit("XE");
    resultat = groupes;
    lis_symbole();
}

void compile_statxy(double& resultat) noexcept {
    resultat = 0;
    moteur.l_argument1 = moteur.l_valeur;
    if (!lis_argument(moteur.l_argument2)) return;
    if (!lis_effectif(moteur.l_argument3)) return;
    met_a_zero("STNVUWP");
    note_debut_de_groupes(true);
    statxy();
    double groupes = 1;
    while (moteur.l_symbole != ")") {
        if (!lis_argument(moteur.l_argument1) || !lis_argument(moteur.l_argument2)) return;
        if (!lis_effectif(moteur.l_argument3)) return;
        statxy();
        groupes += 1;
    }
    calcule_moyennes();
    calcule_droite_y();
    calcule_droite_x();
    calcule_correlation();
    resultat = groupes;
    lis_symbole();
}
