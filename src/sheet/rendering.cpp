// From the value of a line to its result, in the current number mode. Changes resultat_ligne and, for a
// matrix in column form, resultat_bloc.
#include "sheet/rendering.hpp"

#include <cstdint>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "functions/progressions.hpp"
#include "settings/settings.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_text.hpp"
#include "sheet/number_result.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"
#include "state/variables.hpp"

namespace {

constexpr Procedure kAfficheValeur{" sur Affiche_valeur"_fr, false};

// The layout of matrices: any value but 0 in the settings is a column here. Kept: see the oddities,
// matrix-layout-field.
bool matrices_en_colonne() { return reglages.table_ini(kLigneAffichage).champ1 != 0; }

// The result of a matrix line: in column form a block below the line, in line form all on it.
void affiche_matrice(std::int16_t numero, char lettre) {
    const Dimension d = DimensionMatrice(lettre);
    std::string bornes;
    Tente(kAfficheValeur, [&] { bornes = chiffres(d.lignes) + "," + chiffres(d.colonnes); });
    if (matrices_en_colonne()) {
        ChaineMatriceColonne(lettre);
        Tente(kAfficheValeur, [&] { feuille.resultat_ligne.pose(numero, "== " + bornes); });
    } else {
        const std::string elements = ChaineMatriceLigne(lettre);
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne.pose(numero, " =" + elements + " =" + bornes);
        });
        feuille.resultat_bloc.clear();
    }
}

// True when the text last given to the engine is that of a matrix line.
bool est_ligne_matrice(const std::string& formule) {
    return formule.size() > 3 && formule[0] == 'M' &&
           TestCarMatrice(std::string_view(formule).substr(1, 1));
}

}  // namespace

// The formula read last may be another line's, as in a table: what stands in this one is looked at.
void affiche_valeur(std::int16_t numero) noexcept {
    affiche_valeur(numero, signes_de(formule_lue()) | kMotEuro.lettres);
}

void affiche_valeur(std::int16_t numero, Signes signes) noexcept {
    const std::string& formule = formule_lue();
    if (TexteMarque(formule, signes).contient(kMotTriStatX)) {
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne.pose(numero, " = " + chiffres(borne_table_x()));
        });
        return;
    }
    if (est_ligne_matrice(formule)) {
        affiche_matrice(numero, formule[1]);
        return;
    }
    bool euro = false;
    if (kMotEuro.possible(signes)) Tente(kAfficheValeur, [&] { euro = formule_contient(numero, kMotEuro); });
    if (euro)
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne.pose(numero, " = " + Forme_montant(feuille.valeur_ligne(numero)));
        });
    else
        Affiche_valeur_nombre(numero);
}
