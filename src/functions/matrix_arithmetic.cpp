// Sum, difference, product, product by a number and power of the work matrices. Changes `matrices`.
#include "functions/matrix_arithmetic.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "functions/functions.hpp"
#include "platform/patience.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "state/matrices.hpp"

namespace {

constexpr Procedure kAddition{"sur AdditionMatrice"_fr, true};
constexpr Procedure kSoustraction{"sur SoustractionMatrice"_fr, true};
constexpr Procedure kMultiplication{"sur MultiplicationMatrice"_fr, true};
constexpr Procedure kNombre{"sur MultiplicationNombreMatrice"_fr, true};
constexpr Procedure kPuissance{"sur PuissanceMatrice"_fr, true};

// Reports two operands that don't fit, with their bounds. The sum and the difference say the third number
// without its blank. Kept: see the oddities, numbers-glued.
void refuse_bornes(const Procedure& procedure, std::string_view mots, bool troisieme_collee) {
    const TableMatrice& a = matrices.matrice_travail;
    const TableMatrice& b = matrices.matrice_travail2;
    std::string texte;
    Tente(procedure, [&] {
        texte.assign(mots);
        texte += forme_blanc(a.lignes()) + "," + forme_blanc(a.colonnes()) + ";";
        texte += troisieme_collee ? chiffres(b.lignes()) : forme_blanc(b.lignes());
        texte += "," + forme_blanc(b.colonnes());
    });
    affiche_erreur_calcul(texte);
}

bool memes_bornes() {
    return matrices.matrice_travail.lignes() == matrices.matrice_travail2.lignes() &&
           matrices.matrice_travail.colonnes() == matrices.matrice_travail2.colonnes();
}

// One element of the product: row i of the accumulator by column j of the operand, in ascending
// order. One box for each addition that fails, and the sum goes on.
void somme_produits(TableMatrice& produit, int i, int j) noexcept {
    const TableMatrice& a = matrices.matrice_travail;
    const TableMatrice& b = matrices.matrice_travail2;
    double& somme = produit(i, j);
    somme = 0;
    if (!Tente(kMultiplication, [&] { demande_suite(static_cast<std::size_t>(a.colonnes()) * 4); })) return;
    for (int k = 1; k <= a.colonnes(); ++k)
        Tente(kMultiplication, [&] {
            const double x = a(i, k), y = b(k, j);
            range(somme, somme + x * y, somme, x, y);
        });
}

// The product x * y of two square matrices of size n, bit for bit that of MultiplicationMatrice,
// into p. False when an element is not finite: that is for the product with its boxes. A size known
// to the compiler (0: it isn't) makes the small ones several times faster. Asks whether to go on.
template <std::size_t Taille>
bool produit_fini(const double* x, const double* y, double* p, std::size_t taille) {
    const std::size_t n = Taille != 0 ? Taille : taille;
    bool fini = true;
    for (std::size_t i = 0; i < n; ++i, x += n, p += n) {
        demande_suite(n * n);
        std::fill_n(p, n, 0.0);
        for (std::size_t k = 0; k < n; ++k)
            for (std::size_t j = 0; j < n; ++j) p[j] += x[k] * y[k * n + j];
        for (std::size_t j = 0; j < n; ++j) fini &= std::isfinite(p[j]);
    }
    return fini;
}

// The accumulator times the operand into `produit`, both square and of one size.
bool produit_fini(TableMatrice& produit) {
    const double* x = matrices.matrice_travail.elements();
    const double* y = matrices.matrice_travail2.elements();
    double* p = produit.elements();
    switch (produit.lignes()) {
        case 1:
            return produit_fini<1>(x, y, p, 1);
        case 2:
            return produit_fini<2>(x, y, p, 2);
        case 3:
            return produit_fini<3>(x, y, p, 3);
        default:
            return produit_fini<0>(x, y, p, static_cast<std::size_t>(produit.lignes()));
    }
}

// The same elements bit for bit; which undefined value it is makes no difference.
bool identiques(const TableMatrice& a, const TableMatrice& b) {
    const std::size_t n =
        static_cast<std::size_t>(a.lignes()) * static_cast<std::size_t>(a.colonnes());
    const double* x = a.elements();
    const double* y = b.elements();
    for (std::size_t i = 0; i < n; ++i)
        if (std::bit_cast<std::uint64_t>(x[i]) != std::bit_cast<std::uint64_t>(y[i]) &&
            !(std::isnan(x[i]) && std::isnan(y[i])))
            return false;
    return true;
}

// The multiplications of one power: how far they are, and the accumulator as it was at a power of
// two of them, by which a cycle is seen.
struct Multiplications {
    double total = 0;        // to be done
    double faites = 0;       // done; stays exact, since the work ends long before 2^53
    double cout = 0;         // products of elements so far
    TableMatrice suivant;    // room for the next product
    TableMatrice temoin;     // accumulator at the last power of two of multiplications
    double temoin_a = 0;     // how many had been done then
    bool cycle_vu = false;   // the rest of the work is less than one cycle
};

// Most products of elements that one power may cost, which is a second or two; a small exponent may
// cost more, if the matrix is that large.
constexpr double kCoutMaximal = 2e9;
constexpr double kPetitExposant = 100;

// Multiplies the accumulator once. Refuses, with failure 6, to go beyond the greatest cost: an
// exponent such as 10^300 would hold the user for ever.
void multiplie_une_fois(Multiplications& m) {
    TableMatrice& travail = matrices.matrice_travail;
    const double n = travail.lignes();
    const double cout = std::max(n * n * n, 8.0);
    if (m.cout + cout > kCoutMaximal && m.faites >= kPetitExposant) echoue(kDepassement);
    m.cout += cout;
    m.faites += 1;
    if (produit_fini(m.suivant)) {
        travail.echange(m.suivant);
    } else {
        m.cout += 16 * cout;
        MultiplicationMatrice();
    }
}

// Looks for a cycle. As each product follows from the one before alone, an accumulator that comes
// back bit for bit (a fixed point is a cycle of one) comes back for ever: whole cycles are left
// out. A failed product needs no other end: its infinite elements become a cycle, which shows no
// box, within a few multiplications.
void cherche_cycle(Multiplications& m) {
    const double ecart = m.faites - m.temoin_a;
    if (identiques(matrices.matrice_travail, m.temoin)) {
        double reste = std::fmod(m.total, ecart) - std::fmod(m.faites, ecart);
        if (reste < 0) reste += ecart;
        m.total = m.faites + reste;
        m.cycle_vu = true;
    } else if (ecart >= m.temoin_a) {
        m.temoin = matrices.matrice_travail;
        m.temoin_a = m.faites;
    }
}

// Multiplies the accumulator by the starting matrix until the power is reached.
void multiplie(double total) noexcept {
    const int n = matrices.matrice_travail.lignes();
    Multiplications m;
    m.total = total;
    if (!Tente(kPuissance, [&] { m.suivant = TableMatrice(n, n); })) return;
    if (!Tente(kPuissance, [&] { m.temoin = matrices.matrice_travail; })) return;
    while (m.faites < m.total) {
        if (!Tente(kPuissance, [&] { multiplie_une_fois(m); })) return;
        if (!m.cycle_vu && !Tente(kPuissance, [&] { cherche_cycle(m); })) return;
    }
}

}  // namespace

void additionMatrice() noexcept {
    TableMatrice& a = matrices.matrice_travail;
    const TableMatrice& b = matrices.matrice_travail2;
    if (!memes_bornes()) {
        refuse_bornes(kAddition, "Matrice incompatible pour l'addition"_fr, true);
        return;
    }
    for (int i = 1; i <= a.lignes(); ++i)
        for (int j = 1; j <= a.colonnes(); ++j)
            Tente(kAddition, [&] {
                const double x = a(i, j), y = b(i, j);
                range(a(i, j), x + y, x, y);
            });
}

void SoustractionMatrice() noexcept {
    TableMatrice& a = matrices.matrice_travail;
    const TableMatrice& b = matrices.matrice_travail2;
    if (!memes_bornes()) {
        refuse_bornes(kSoustraction, "Matrice incompatible pour l'soustraction"_fr, true);
        return;
    }
    for (int i = 1; i <= a.lignes(); ++i)
        for (int j = 1; j <= a.colonnes(); ++j)
            Tente(kSoustraction, [&] {
                const double x = a(i, j), y = b(i, j);
                range(a(i, j), x - y, x, y);
            });
}

void MultiplicationMatrice() noexcept {
    TableMatrice& a = matrices.matrice_travail;
    const TableMatrice& b = matrices.matrice_travail2;
    if (a.colonnes() != b.lignes()) {
        refuse_bornes(kMultiplication, "Matrice incompatible pour la multiplication"_fr, false);
        return;
    }
    TableMatrice produit;
    // Without room for the product no element has a place: nothing after this means anything.
    if (!Tente(kMultiplication, [&] { produit = TableMatrice(a.lignes(), b.colonnes()); })) return;
    for (int i = 1; i <= produit.lignes(); ++i)
        for (int j = 1; j <= produit.colonnes(); ++j) somme_produits(produit, i, j);
    a.echange(produit);
}

void MultiplicationNombreMatrice(double nombre) noexcept {
    TableMatrice& m = moteur.flag_travail2 ? matrices.matrice_travail2 : matrices.matrice_travail;
    for (int i = 1; i <= m.lignes(); ++i)
        for (int j = 1; j <= m.colonnes(); ++j)
            Tente(kNombre, [&] {
                const double x = m(i, j);
                range(m(i, j), x * nombre, x, nombre);
            });
}

void PuissanceMatrice(double exposant) noexcept {
    const TableMatrice& travail = matrices.matrice_travail;
    double fraction = 0;
    if (travail.lignes() != travail.colonnes()) {
        affiche_erreur_calcul("Matrice incompatible pour la puissance"_fr);
        return;
    }
    Tente(kPuissance, [&] { fraction = frac(exposant); });
    if (fraction != 0) {
        affiche_erreur_calcul("exposant de la matrice non entier"_fr);
        return;
    }
    if (exposant < 2) {
        affiche_erreur_calcul("exposant de la matrice < 2"_fr);
        return;
    }
    if (!Tente(kPuissance, [&] { matrices.matrice_travail2 = travail; })) return;
    // An exponent whole to fifteen digits may lie just below: the last turn is then not made.
    multiplie(std::floor(exposant - 1));
}
