// From the value of a line to its result, in the current number mode. Changes resultat_ligne and, for a
// matrix in column form, resultat_bloc.
#include "sheet/rendering.hpp"

#include <array>
#include <cmath>
#include <cstdint>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/number_text.hpp"
#include "functions/functions.hpp"
#include "functions/progressions.hpp"
#include "settings/settings.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_text.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

namespace {

constexpr Procedure kAfficheValeur{" sur Affiche_valeur"_fr, false};
constexpr Procedure kAfficheValeurNombre{" sur Affiche_valeur_nombre"_fr, false};
constexpr Procedure kAffichePi{" sur AffichePi"_fr, false};

// The positive multiples of Pi that have a notation, in the order in which they are compared; each
// value is computed from pi_valeur as its text says. The negative ones mirror them.
struct MultiplePi {
    double facteur, diviseur;
    std::string_view texte;
};
constexpr std::array<MultiplePi, 6> kMultiplesPi = {{{1, 4, "Pi/4"},
                                                     {1, 2, "Pi/2"},
                                                     {3, 4, "3Pi/4"},
                                                     {1, 1, "Pi"},
                                                     {3, 2, "3Pi/2"},
                                                     {2, 1, "2Pi"}}};

// Text of a listed multiple of Pi without its sign, or an empty text. No tolerance: a value that
// differs in its last bit is no multiple.
std::string_view multiple_pi(double absolu) {
    if (absolu < moteur.pi_valeur / 4 || absolu > 2 * moteur.pi_valeur) return {};
    for (const MultiplePi& m : kMultiplesPi)
        if (absolu == m.facteur * moteur.pi_valeur / m.diviseur) return m.texte;
    return {};
}

// True when the line's own text, whatever its case, holds the mark.
bool formule_contient(std::int16_t numero, const Marque& marque) {
    const std::string& formule = feuille.formule_ligne(numero);
    if ((lettres_de(formule) & marque.lettres) != marque.lettres) return false;
    return capitales(formule).find(marque.mot) != std::string::npos;
}

// Text of the line's value in the present mode.
std::string texte_valeur(std::int16_t numero) {
    const double x = feuille.valeur_ligne(numero);
    if (modes.mode_nombre == 2) return texte_hexa(x);
    if (modes.mode_affichage == 2) return FormatNombre(x);
    if (modes.mode_affichage == 3) return FormatPuissance(x);
    return c_intx(x);
}

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
        Tente(kAfficheValeur, [&] { feuille.resultat_ligne(numero) = "== " + bornes; });
    } else {
        const std::string elements = ChaineMatriceLigne(lettre);
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne(numero) = " =" + elements + " =" + bornes;
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

void affiche_valeur(std::int16_t numero) noexcept {
    const std::string& formule = moteur.p_formule;
    if (TexteMarque(formule).contient(kMotTriStatX)) {
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne(numero) = " = " + chiffres(borne_table_x());
        });
        return;
    }
    if (est_ligne_matrice(formule)) {
        affiche_matrice(numero, formule[1]);
        return;
    }
    bool euro = false;
    Tente(kAfficheValeur, [&] { euro = formule_contient(numero, kMotEuro); });
    if (euro)
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne(numero) = " = " + Forme_montant(feuille.valeur_ligne(numero));
        });
    else
        Affiche_valeur_nombre(numero);
}

void Affiche_valeur_nombre(std::int16_t numero) noexcept {
    bool pi = false;
    if (modes.mode_nombre == 1) AffichePi(numero, pi);
    if (pi) return;
    std::string texte;
    Tente(kAfficheValeurNombre, [&] { texte = texte_valeur(numero); });
    Tente(kAfficheValeurNombre, [&] {
        (feuille.resultat_ligne(numero) = " = ") += texte;
    });
}

void AffichePi(std::int16_t numero, bool& trouve) noexcept {
    trouve = false;
    Tente(kAffichePi, [&] {
        const double x = feuille.valeur_ligne(numero);
        const std::string_view texte = multiple_pi(std::fabs(x));
        // Who wrote Pi into the line wants digits.
        if (texte.empty() || formule_contient(numero, kMotPi)) return;
        (feuille.resultat_ligne(numero) = x < 0 ? " = -" : " = ") += texte;
        trouve = true;
    });
}
