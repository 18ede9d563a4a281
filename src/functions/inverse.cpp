// Determinant and inverse of the work matrix. Changes `matrices` and `moteur`.
//
// A determinant is expanded along its first row, its minors likewise, and so on down to order 2.
// The minors of order k all stand on the last k rows and differ only by their columns, so each is
// computed once, a level of all minors of one order out of the level below: n * 2^n products in
// place of n factorial, with the same sums in the same order, hence the same bits. A level is a
// table by the rank of the set of columns, sets in the order of their numbers (bit 0 for column 1).
#include "functions/inverse.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/memory_reserve.hpp"
#include "base/number.hpp"
#include "platform/boxes.hpp"
#include "platform/patience.hpp"
#include "platform/side_by_side.hpp"
#include "state/formula_error.hpp"

namespace {

constexpr Procedure kDeterminant{"sur DeterminantMatrice"_fr, true};
constexpr Procedure kInversion{"sur InversionMatrice"_fr, true};

// Greatest order that is accepted: its largest levels have 2.7 million minors.
constexpr int kOrdreMaximal = 24;

// Order from which the rows are shared among the cores: below it a thread costs more than it brings.
constexpr int kOrdrePartage = 14;

// Rows of the inverse that are computed side by side, so that the processor's vectors are filled.
constexpr std::size_t kVoies = 4;

using Colonnes = std::uint32_t;
template <std::size_t V>
using Valeurs = std::array<double, V>;           // one minor for each of V matrices
template <std::size_t V>
using Niveau = const Valeurs<V>*;                // all minors of one order, by rank
template <std::size_t V>
using Rangee = std::array<Valeurs<V>, kOrdreMaximal>;   // elements of a row, by column from 0

// How many sets of k columns there are among c.
constexpr auto kBinomes = [] {
    std::array<std::array<std::uint32_t, kOrdreMaximal + 1>, kOrdreMaximal + 1> t{};
    for (std::size_t c = 0; c <= kOrdreMaximal; ++c) {
        t[c][0] = 1;
        for (std::size_t k = 1; k <= c; ++k) t[c][k] = t[c - 1][k - 1] + (k < c ? t[c - 1][k] : 0);
    }
    return t;
}();

std::uint32_t binome(std::size_t c, std::size_t k) { return kBinomes[c][k]; }

// The level that has been reached and room for the one above it, both for the largest of matrices of order
// n: they are filled again and again, since memory that the system gives anew costs as much as the sums.
template <std::size_t V>
struct Niveaux {
    explicit Niveaux(int n) : niveau(place(n)), dessus(place(n)) {}
    std::unique_ptr<Valeurs<V>[]> niveau, dessus;

private:
    static std::unique_ptr<Valeurs<V>[]> place(int n) {
        const auto ordre = static_cast<std::size_t>(n);
        return std::make_unique_for_overwrite<Valeurs<V>[]>(binome(ordre, ordre / 2));
    }
};

// Who is asked on the way whether to go on: the user, on the program's own thread; on another one the
// others, who may have stopped.
struct Suite {
    const std::atomic<bool>* arret = nullptr;   // nullptr: the user
    void demande(std::size_t pas) const {
        if (arret == nullptr) return demande_suite(pas);
        if (*arret) throw Arrete{};
    }
};

// Columns in ascending order, from 0.
struct Ensemble {
    std::array<std::uint8_t, kOrdreMaximal> colonne{};
    std::size_t taille = 0;
    void ajoute(std::size_t c) { colonne[taille++] = static_cast<std::uint8_t>(c); }
    void ajoute_tout(Colonnes reste) {
        for (; reste != 0; reste &= reste - 1) ajoute(static_cast<std::size_t>(std::countr_zero(reste)));
    }
};

// Rank of the set without its element `otee` (from 0; one that the set doesn't have leaves none out).
std::uint32_t rang_sans(const Ensemble& e, std::size_t otee) {
    std::uint32_t rang = 0;
    for (std::size_t t = 0; t < e.taille; ++t)
        if (t != otee) rang += binome(e.colonne[t], t < otee ? t + 1 : t);
    return rang;
}

// The minors of one order that have all their columns but the two lowest in common: a piece of the
// level, and of the level below for each element that they are expanded along.
struct Famille {
    Ensemble hautes;                  // the common columns, after two places for the lowest
    std::size_t troisieme;            // the lowest common column: the others stand below it
    std::uint32_t nombre() const { return binome(troisieme, 2); }
};

// The family whose common columns are those.
Famille famille_de(Colonnes hautes) {
    Famille f;
    f.hautes.ajoute(0);
    f.hautes.ajoute(0);   // the places of the lowest two, which add nothing to a rank
    f.hautes.ajoute_tout(hautes);
    f.troisieme = f.hautes.colonne[2];
    return f;
}

// One minor of matrix `voie` again, statement by statement: raises failure 6 where a sum overflows out
// of finite operands. What comes out of an infinite element raises nothing.
template <std::size_t V>
void surveille(const Ensemble& e, const Rangee<V>& rangee, Niveau<V> dessous, std::size_t voie) {
    double somme = 0, signe = 1;
    for (std::size_t j = 0; j < e.taille; ++j) {
        const double element = rangee[e.colonne[j]][voie];
        const double mineur = dessous[rang_sans(e, j)][voie];
        range(somme, somme + signe * element * mineur, somme, element, mineur);
        signe = -signe;
    }
}

// The same for every minor of a family.
template <std::size_t V>
void surveille_famille(const Famille& f, const Rangee<V>& rangee, Niveau<V> dessous) {
    Ensemble e = f.hautes;
    for (std::size_t deux = 1; deux < f.troisieme; ++deux)
        for (std::size_t un = 0; un < deux; ++un) {
            e.colonne[0] = static_cast<std::uint8_t>(un);
            e.colonne[1] = static_cast<std::uint8_t>(deux);
            for (std::size_t v = 0; v < V; ++v) surveille<V>(e, rangee, dessous, v);
        }
}

// The first two terms of each minor of a family: those along its two lowest columns.
template <std::size_t V>
void commence(Valeurs<V>* somme, const Famille& f, const Rangee<V>& rangee, const Valeurs<V>* mineur) {
    for (std::size_t deux = 1; deux < f.troisieme; ++deux)
        for (std::size_t un = 0; un < deux; ++un, ++somme)
            for (std::size_t v = 0; v < V; ++v)
                (*somme)[v] = 0.0 + rangee[un][v] * mineur[deux][v] - rangee[deux][v] * mineur[un][v];
}

// Where the terms along one column stand: its element, with its sign, and the minors to multiply.
template <std::size_t V>
struct Colonne {
    Valeurs<V> element;
    const Valeurs<V>* mineur;
};

// Two terms more of each minor of a family, one after the other; the minors lie side by side in memory,
// so that the loop runs on the processor's vectors.
template <std::size_t V>
void ajoute_termes(Valeurs<V>* __restrict somme, std::uint32_t nombre, const Colonne<V>& a,
                   const Colonne<V>& b) {
    const Valeurs<V> ea = a.element, eb = b.element;
    const Valeurs<V>* const ma = a.mineur;
    const Valeurs<V>* const mb = b.mineur;
    for (std::uint32_t r = 0; r < nombre; ++r)
        for (std::size_t v = 0; v < V; ++v) somme[r][v] = somme[r][v] + ea[v] * ma[r][v] + eb[v] * mb[r][v];
}

template <std::size_t V>
void ajoute_terme(Valeurs<V>* __restrict somme, std::uint32_t nombre, const Colonne<V>& a) {
    const Valeurs<V> ea = a.element;
    const Valeurs<V>* const ma = a.mineur;
    for (std::uint32_t r = 0; r < nombre; ++r)
        for (std::size_t v = 0; v < V; ++v) somme[r][v] += ea[v] * ma[r][v];
}

// True when none of them is infinite or undefined.
template <std::size_t V>
bool finis(const Valeurs<V>* valeurs, std::uint32_t nombre) {
    Valeurs<V> nul{};
    for (std::uint32_t r = 0; r < nombre; ++r)
        for (std::size_t v = 0; v < V; ++v) nul[v] += valeurs[r][v] * 0.0;
    return std::all_of(nul.begin(), nul.end(), [](double x) { return x == 0; });
}

// A family of determinants of order 3 and more, each along its first row.
template <std::size_t V>
void developpe(Valeurs<V>* niveau, const Famille& f, const Rangee<V>& rangee, Niveau<V> dessous) {
    const Ensemble& e = f.hautes;
    // With one of the two lowest columns gone the other one's number is the place in its piece.
    Valeurs<V>* const somme = niveau + rang_sans(e, e.taille);
    commence(somme, f, rangee, dessous + rang_sans(e, 0));
    const auto colonne = [&](std::size_t j) {
        Colonne<V> c{rangee[e.colonne[j]], dessous + rang_sans(e, j)};
        if ((j & 1) != 0)
            for (double& x : c.element) x = -x;
        return c;
    };
    std::size_t j = 2;
    for (; j + 1 < e.taille; j += 2) ajoute_termes(somme, f.nombre(), colonne(j), colonne(j + 1));
    if (j < e.taille) ajoute_terme(somme, f.nombre(), colonne(j));
    if (!finis(somme, f.nombre())) [[unlikely]] surveille_famille<V>(f, rangee, dessous);
}

// Determinants of order 2: the level below holds the elements of the last row.
template <std::size_t V>
void developpe_2(Valeurs<V>* niveau, std::size_t n, const Rangee<V>& haut, Niveau<V> bas) {
    std::size_t rang = 0;
    for (std::size_t droite = 1; droite < n; ++droite)
        for (std::size_t gauche = 0; gauche < droite; ++gauche, ++rang)
            for (std::size_t v = 0; v < V; ++v) {
                const double a = haut[gauche][v], b = haut[droite][v];
                const double c = bas[gauche][v], d = bas[droite][v];
                range(niveau[rang][v], a * d - c * b, a, b, c, d);
            }
}

// The next greater number with as many bits.
Colonnes suivante(Colonnes c) {
    const Colonnes bas = c & (~c + 1), haut = c + bas;
    return haut | (((haut ^ c) >> 2) / bas);
}

// The level of order k out of the one below, with the row that its minors begin with. Asks whether to go on.
template <std::size_t V>
void monte(Niveaux<V>& niveaux, int k, int n, const Rangee<V>& rangee, const Suite& suite) {
    const auto ordre = static_cast<std::size_t>(k), largeur = static_cast<std::size_t>(n);
    Valeurs<V>* const dessus = niveaux.dessus.get();
    const Niveau<V> niveau = niveaux.niveau.get();
    if (k == 1) {
        std::copy_n(rangee.begin(), largeur, dessus);
    } else if (k == 2) {
        developpe_2<V>(dessus, largeur, rangee, niveau);
    } else {
        Colonnes hautes = (Colonnes{1} << (k - 2)) - 1;   // as if the first two columns weren't there
        for (std::uint32_t reste = binome(largeur - 2, ordre - 2); reste > 0; --reste) {
            const Famille f = famille_de(hautes << 2);
            suite.demande(f.nombre() * ordre * V / 4);
            developpe<V>(dessus, f, rangee, niveau);
            hautes = suivante(hautes);
        }
    }
    std::swap(niveaux.niveau, niveaux.dessus);
}

// The row that is number `rang` from the bottom (1 is the last) when row `otee` is left out (0 when
// none is), for matrix `voie` of a level.
template <std::size_t V>
void prend_rangee(Rangee<V>& rangee, std::size_t voie, const TableMatrice& M, int n, int rang, int otee) {
    int ligne = n - rang + 1;
    if (ligne <= otee) --ligne;
    for (int j = 1; j <= n; ++j) rangee[static_cast<std::size_t>(j - 1)][voie] = M(ligne, j);
}

// The signed minors of the rows that end with `derniere`: each is the determinant without its row and
// its column. The minors below those rows are the determinant's own, given in `commun`.
void range_cofacteurs(TableMatrice& C, const TableMatrice& M, int n, int derniere,
                      const std::vector<double>& commun, Niveaux<kVoies>& niveaux, const Suite& suite) {
    for (std::size_t r = 0; r < commun.size(); ++r) niveaux.niveau[r].fill(commun[r]);
    // Where fewer rows are left than a level has places, the first row stands in several of them.
    const auto ligne = [&](std::size_t v) { return std::max(derniere - static_cast<int>(v), 1); };
    for (int k = n - derniere + 1; k < n; ++k) {
        Rangee<kVoies> rangee{};
        for (std::size_t v = 0; v < kVoies; ++v) prend_rangee(rangee, v, M, n, k, ligne(v));
        monte(niveaux, k, n, rangee, suite);
    }
    for (std::size_t v = 0; v < kVoies; ++v)
        for (int j = 1; j <= n; ++j) {
            const double mineur = niveaux.niveau[static_cast<std::size_t>(n - j)][v];
            C(ligne(v), j) = funcEstPaire(ligne(v) + j) ? mineur : -mineur;
        }
}

// A determinant, and of its levels those that the rows of the inverse start from.
struct Expansion {
    double determinant = 0;
    std::array<std::vector<double>, kOrdreMaximal / kVoies + 1> communs;   // of the orders 0, kVoies...
};

// The levels of the determinant, from order 0, whose only minor is 0, up to order n. Refuses an order
// whose levels would be too large with failure 7.
Expansion developpe_tout(const TableMatrice& M, int n) {
    if (n > kOrdreMaximal) echoue(kMemoire);
    Expansion e;
    Niveaux<1> niveaux(n);
    niveaux.niveau[0][0] = 0;
    for (int k = 1; k <= n; ++k) {
        const auto dessous = static_cast<std::size_t>(k - 1);
        if (dessous % kVoies == 0) {
            const double* const mineurs = niveaux.niveau[0].data();
            e.communs[dessous / kVoies].assign(mineurs, mineurs + binome(static_cast<std::size_t>(n), dessous));
        }
        Rangee<1> rangee{};
        prend_rangee(rangee, 0, M, n, k, 0);
        monte(niveaux, k, n, rangee, Suite{});
    }
    e.determinant = niveaux.niveau[0][0];
    return e;
}

// Rooms for the workers; a machine without memory for more than one has one.
std::vector<Niveaux<kVoies>> place_des_ouvriers(int n, int ouvriers) {
    std::vector<Niveaux<kVoies>> places;
    places.emplace_back(n);
    try {
        for (int o = 1; o < ouvriers; ++o) places.emplace_back(n);
    } catch (const std::bad_alloc&) {
        reprend_reserve();
    }
    return places;
}

// All signed minors, several rows on each core of the processor: which one computes a row changes no bit.
void range_tous_cofacteurs(TableMatrice& C, const TableMatrice& M, int n, const Expansion& e) {
    const int voies = static_cast<int>(kVoies), groupes = (n + voies - 1) / voies;
    auto places = place_des_ouvriers(n, n < kOrdrePartage ? 1 : std::min(ouvriers_possibles(), groupes));
    std::atomic<bool> arret = false;
    cote_a_cote(groupes, static_cast<int>(places.size()), arret, [&](int groupe, int ouvrier) {
        range_cofacteurs(C, M, n, n - groupe * voies, e.communs[static_cast<std::size_t>(groupe)],
                         places[static_cast<std::size_t>(ouvrier)], Suite{ouvrier == 0 ? nullptr : &arret});
    });
}

// Inverts in place the matrix that has been expanded. The order 0 minor of a 1 by 1 matrix is 0, so its
// inverse is 0. Kept: see the oddities, inverse-of-one-element.
void inverse(TableMatrice& M, int n, const Expansion& e) {
    const double d = e.determinant;
    if (d == 0) montre_boite(" déterminant nulle matrice non inversible"_fr);
    TableMatrice C(n, n);
    range_tous_cofacteurs(C, M, n, e);
    procTransMatrix(C, n);
    for (int i = 1; i <= n; ++i)
        for (int j = 1; j <= n; ++j) range_quotient(C(i, j), C(i, j), d);
    procTransfertMatrix(C, M, n);
}

// Refuses the work matrix with its bounds: two blanks stand before the first number.
void refuse_bornes(const Procedure& procedure, std::string_view mots) {
    const TableMatrice& travail = matrices.matrice_travail;
    Tente(procedure, [&] {
        std::string texte =
            std::string(mots) + forme_blanc(travail.lignes()) + "," + forme_blanc(travail.colonnes());
        note_faute_calcul(texte);
        note_texte_erreur(std::move(texte));
    });
    marque_erreur_formule();
}

}  // namespace

void Determinantmatrice(double& resultat) noexcept {
    const TableMatrice& travail = matrices.matrice_travail;
    if (travail.lignes() != travail.colonnes()) {
        refuse_bornes(kDeterminant, "matrice non carée "_fr);
        resultat = 0;
        return;
    }
    Tente(kDeterminant, [&] { resultat = funcDetMat(travail, travail.lignes()); });
}

void InversionMatrice() noexcept {
    TableMatrice& travail = matrices.matrice_travail;
    if (travail.lignes() != travail.colonnes()) {
        refuse_bornes(kInversion, "matrice à inverser non carée "_fr);
        return;
    }
    Expansion e;
    Tente(kDeterminant, [&] { e = developpe_tout(travail, travail.lignes()); });
    if (e.determinant == 0) {
        // No error: the matrix goes on as it is, and an assignment copies it. Kept: see the oddities,
        // singular-inverse.
        Tente(kInversion, [] { note_texte_erreur(std::string("déterminant nul"_fr)); });
        note_sans_inverse();
        return;
    }
    Tente(kInversion, [&] { inverse(travail, travail.lignes(), e); });
}

double funcDetMat(const TableMatrice& M, int n) { return developpe_tout(M, n).determinant; }

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

void procInverseMatrix(TableMatrice& M, int n) { inverse(M, n, developpe_tout(M, n)); }

void procTransMatrix(TableMatrice& M, int n) {
    for (int i = 1; i <= n; ++i)
        for (int j = i; j <= n; ++j) std::swap(M(i, j), M(j, i));
}

void procTransfertMatrix(const TableMatrice& source, TableMatrice& destination, int n) {
    for (int i = 1; i <= n; ++i)
        for (int j = 1; j <= n; ++j) destination(i, j) = source(i, j);
}

bool funcEstPaire(int k) { return (k & 1) == 0; }
