// Making the text of a matrix result. Changes matrice_travail2, resultat_bloc, and the value and
// result of the line in calculation.
#include "sheet/matrix_text.hpp"

#include <cstddef>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "sheet/number_result.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

namespace {

constexpr Procedure kLigne{"sur ChaineMatriceLigne"_fr, true};
constexpr Procedure kColonne{"sur ChaineMatriceColonne"_fr, true};

// Characters of " = " that a rendering begins with, when its blank is kept and when it isn't.
constexpr std::size_t kEgalSansBlanc = 2;
constexpr std::size_t kEgal = 3;

// Adds to `texte` the rendering of an element of matrice_travail2, without its first `tete`
// characters. The line in calculation keeps the element as its value.
void ajoute_element(const Procedure& procedure, std::string& texte, int i, int j,
                    std::size_t tete) noexcept {
    const std::int16_t numero = feuille.ligne_courante;
    Tente(procedure, [&] { feuille.valeur_ligne(numero) = matrices.matrice_travail2(i, j); });
    Tente(procedure, [&] { Affiche_valeur_nombre(numero); });
    Tente(procedure, [&] {
        const std::string_view rendu = feuille.resultat_ligne(numero);
        if (rendu.size() > tete) texte += rendu.substr(tete);
    });
}

}  // namespace

std::string ChaineMatriceLigne(char lettre) noexcept {
    std::string texte;
    CopieMatriceVersTravail2(lettre);
    const int lignes = matrices.matrice_travail2.lignes();
    const int colonnes = matrices.matrice_travail2.colonnes();
    for (int i = 1; i <= lignes; ++i) {
        for (int j = 1; j <= colonnes; ++j) {
            ajoute_element(kLigne, texte, i, j, kEgal);
            if (j < colonnes) Tente(kLigne, [&] { texte += ','; });
        }
        if (i < lignes) Tente(kLigne, [&] { texte += ';'; });
    }
    return texte;
}

void ChaineMatriceColonne(char lettre) noexcept {
    std::string& bloc = feuille.resultat_bloc;
    bloc.clear();
    CopieMatriceVersTravail2(lettre);
    const int lignes = matrices.matrice_travail2.lignes();
    const int colonnes = matrices.matrice_travail2.colonnes();
    for (int i = 1; i <= lignes; ++i)
        for (int j = 1; j <= colonnes; ++j) {
            ajoute_element(kColonne, bloc, i, j, j == 1 ? kEgal : kEgalSansBlanc);
            Tente(kColonne, [&] { bloc += j < colonnes ? "," : "\r\n"; });
        }
    Tente(kColonne, [&] { bloc += kFinMatrice; });
}
