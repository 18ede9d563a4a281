// The matrix store's instance and the copies between the named matrices and the work matrices.
// Changes `matrices`.
#include "state/matrices.hpp"

#include <cstddef>
#include <utility>

#include "base/codepage.hpp"
#include "state/formula_error.hpp"

Matrices matrices;

namespace {

constexpr Procedure kCopieTravail{"sur CopieMatriceVersTravail"_fr, true};
constexpr Procedure kCopieTravail2{"sur CopieMatriceVersTravail2"_fr, true};
constexpr Procedure kCopieVersMatrice{"sur CopietravailVersMatrice"_fr, true};
constexpr Procedure kDimension{"sur DimensionMatrice"_fr, true};

}  // namespace

bool TestCarMatrice(std::string_view lettre) {
    return kLettresMatrices.find(lettre) != std::string_view::npos;
}

TableMatrice* table_de(char lettre) noexcept {
    const std::size_t rang = kLettresMatrices.find(lettre);
    return rang == std::string_view::npos ? nullptr : &matrices.table[rang + 1];
}

void CopieMatriceVersTravail(char lettre) noexcept {
    const TableMatrice* source = table_de(lettre);
    if (source == nullptr) return;
    Tente(kCopieTravail, [&] { matrices.matrice_travail = *source; });
}

void CopieMatriceVersTravail2(char lettre) noexcept {
    const TableMatrice* source = table_de(lettre);
    if (source == nullptr) return;
    Tente(kCopieTravail2, [&] { matrices.matrice_travail2 = *source; });
}

void CopieTravailVersMatrice(char lettre) noexcept {
    const TableMatrice& travail = matrices.matrice_travail;
    if (travail.lignes() == 0 || travail.colonnes() == 0) {
        affiche_erreur_calcul("matrice de travail vide"_fr);
        return;
    }
    TableMatrice* cible = table_de(lettre);
    if (cible == nullptr) return;
    Tente(kCopieVersMatrice, [&] { *cible = travail; });
}

Dimension DimensionMatrice(char lettre) noexcept {
    Dimension dimension{0, 0};
    CopieMatriceVersTravail2(lettre);
    Tente(kDimension, [&] { dimension.lignes = matrices.matrice_travail2.lignes(); });
    Tente(kDimension, [&] { dimension.colonnes = matrices.matrice_travail2.colonnes(); });
    return dimension;
}
