// Determinant and inverse of the work matrix. Changes `matrices` and `moteur`.
//
// A determinant is expanded along its first row, its minors likewise, and so on down to order 2.
// The minors of order k all stand on the last k rows and differ only by their columns, so each is
// kept in a table under the set of its columns (bit 0 for column 1) and computed once: n * 2^n
// products in place of n factorial, with the same sums in the same order, hence the same bits.
#include "matrix/inverse.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/context.hpp"
#include "platform/platform.hpp"

namespace {

constexpr Procedure kDeterminant{"sur DeterminantMatrice"_fr, true};
constexpr Procedure kInversion{"sur InversionMatrice"_fr, true};

// Greatest order whose table of minors is accepted: 2^24 minors take 128 megabytes.
constexpr int kOrdreMaximal = 24;

using Colonnes = std::uint32_t;
using Mineurs = std::vector<double>;   // by set of columns; the empty set is the determinant 0

// Room for the minors of order n. Refuses an order whose table would be too large with failure 7.
Mineurs cree_mineurs(int n) {
    if (n > kOrdreMaximal) echoue(kMemoire);
    return Mineurs(std::size_t{1} << n);
}

// The row that is number `rang` from the bottom (1 is the last) when row `otee` is left out (0 when
// none is).
const double* rangee_du_bas(const TableMatrice& M, int n, int rang, int otee) {
    int ligne = n - rang + 1;
    if (ligne <= otee) --ligne;
    return &M(ligne, n) - (n - 1);
}

// Determinant of order 2 on the rows `haut` and `bas`.
double mineur_2(const double* haut, const double* bas, Colonnes colonnes) {
    const int gauche = std::countr_zero(colonnes);
    const int droite = std::countr_zero(colonnes & (colonnes - 1));
    const double a = haut[gauche], b = haut[droite], c = bas[gauche], d = bas[droite];
    double resultat;
    range(resultat, a * d - c * b, a, b, c, d);
    return resultat;
}

// Determinant of order 3 and more: along its first row, with the minors of the order below.
double developpe(const double* rangee, Colonnes colonnes, const Mineurs& mineurs) {
    double somme = 0, signe = 1;
    for (Colonnes reste = colonnes; reste != 0; reste &= reste - 1) {
        const double element = rangee[std::countr_zero(reste)];
        const double mineur = mineurs[colonnes ^ (reste & (~reste + 1))];
        range(somme, somme + signe * element * mineur, somme, element, mineur);
        signe = -signe;
    }
    return somme;
}

// Computes the minors above the order `garde` and up to `ordre`, without row `otee`. A set's
// subsets have smaller numbers, so the order of numbers finds every minor of the order below in its
// place.
void calcule_mineurs(Mineurs& mineurs, const TableMatrice& M, int n, int otee, int garde,
                     int ordre) {
    std::vector<const double*> rangee(static_cast<std::size_t>(ordre) + 1);
    for (int k = 1; k <= ordre; ++k)
        rangee[static_cast<std::size_t>(k)] = rangee_du_bas(M, n, k, otee);
    for (Colonnes colonnes = 1; colonnes < mineurs.size(); ++colonnes) {
        const int k = std::popcount(colonnes);
        if (k <= garde || k > ordre) continue;
        const double* premiere = rangee[static_cast<std::size_t>(k)];
        if (k == 1)
            mineurs[colonnes] = premiere[std::countr_zero(colonnes)];
        else if (k == 2)
            mineurs[colonnes] = mineur_2(premiere, rangee[1], colonnes);
        else
            mineurs[colonnes] = developpe(premiere, colonnes, mineurs);
    }
}

// Row i of the signed minors: each is the determinant without row i and without its own column.
void range_cofacteurs(TableMatrice& C, int i, int n, const Mineurs& mineurs) {
    const Colonnes toutes = (Colonnes{1} << n) - 1;
    for (int j = 1; j <= n; ++j) {
        const double mineur = mineurs[toutes ^ (Colonnes{1} << (j - 1))];
        C(i, j) = funcEstPaire(i + j) ? mineur : -mineur;
    }
}

// Words of a refusal with the bounds of the work matrix: two blanks stand before the first number.
std::string refus_bornes(std::string_view mots) {
    const TableMatrice& travail = matrices.matrice_travail;
    return std::string(mots) + forme_blanc(travail.lignes()) + "," +
           forme_blanc(travail.colonnes());
}

}  // namespace

void Determinantmatrice(double& resultat) noexcept {
    const TableMatrice& travail = matrices.matrice_travail;
    if (travail.lignes() != travail.colonnes()) {
        Tente(kDeterminant, [] { moteur.l_texte_erreur = refus_bornes("matrice non carée "_fr); });
        moteur.erreur_formule = true;
        resultat = 0;
        return;
    }
    Tente(kDeterminant, [&] { resultat = funcDetMat(travail, travail.lignes()); });
}

void InversionMatrice() noexcept {
    TableMatrice& travail = matrices.matrice_travail;
    if (travail.lignes() != travail.colonnes()) {
        Tente(kInversion,
              [] { moteur.l_texte_erreur = refus_bornes("matrice à inverser non carée "_fr); });
        moteur.erreur_formule = true;
        return;
    }
    double determinant = 0;
    Determinantmatrice(determinant);
    if (determinant == 0) {
        // No error: the matrix goes on as it is, and an assignment copies it.
        Tente(kInversion, [] { moteur.l_texte_erreur = "déterminant nul"_fr; });
        return;
    }
    Tente(kInversion, [&] { procInverseMatrix(travail, travail.lignes()); });
}

double funcDetMat(const TableMatrice& M, int n) {
    Mineurs mineurs = cree_mineurs(n);
    calcule_mineurs(mineurs, M, n, 0, 0, n);
    return mineurs.back();
}

TableMatrice funcReduceMat(int ligne, int colonne, const TableMatrice& M, int n) {
    TableMatrice reduite(n - 1, n - 1);
    int vers_ligne = 0;
    for (int i = 1; i <= n; ++i) {
        if (i == ligne) continue;
        ++vers_ligne;
        int vers_colonne = 0;
        for (int j = 1; j <= n; ++j)
            if (j != colonne) reduite(vers_ligne, ++vers_colonne) = M(i, j);
    }
    return reduite;
}

// The determinant's own table already holds the minors without row 1; leaving out row i instead
// changes only those that reach up to it, from order n - i + 1 on. The order 0 minor of a 1 by 1
// matrix is 0, so its inverse is 0: an oddity that stays.
void procInverseMatrix(TableMatrice& M, int n) {
    Mineurs mineurs = cree_mineurs(n);
    calcule_mineurs(mineurs, M, n, 0, 0, n);
    const double d = mineurs.back();
    if (d == 0) port.boites.boite(" déterminant nulle matrice non inversible"_fr);
    TableMatrice C(n, n);
    for (int i = 1; i <= n; ++i) {
        if (i > 1) calcule_mineurs(mineurs, M, n, i, n - i, n - 1);
        range_cofacteurs(C, i, n, mineurs);
    }
    procTransMatrix(C, n);
    for (int i = 1; i <= n; ++i)
        for (int j = 1; j <= n; ++j) range_quotient(C(i, j), C(i, j), d);
    procTransfertMatrix(C, M, n);
}

void procTransMatrix(TableMatrice& M, int n) {
    for (int i = 1; i <= n; ++i)
        for (int j = i; j <= n; ++j) std::swap(M(i, j), M(j, i));
}

void procTransfertMatrix(const TableMatrice& source, TableMatrice& destination, int n) {
    for (int i = 1; i <= n; ++i)
        for (int j = 1; j <= n; ++j) destination(i, j) = source(i, j);
}

bool funcEstPaire(int k) { return (k & 1) == 0; }
