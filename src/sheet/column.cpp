// The column total. Changes the tables of the sheet and the variable Z.
#include "sheet/column.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/number.hpp"
#include "sheet/rendering.hpp"
#include "state/sheet.hpp"
#include "state/variables.hpp"

namespace {

// Adds a row for the total after the last line. A sheet of 32,767 lines has no room for it.
std::int16_t ajoute_rangee_total() {
    const std::int16_t derniere = vers_16_tronque(static_cast<double>(feuille.nombre_ligne) + 1);
    feuille.nombre_ligne = derniere;
    const auto nombre = static_cast<std::size_t>(derniere);
    feuille.valeur_ligne.redimensionne(nombre);
    feuille.formule_ligne.redimensionne(nombre);
    feuille.resultat_ligne.redimensionne(nombre);
    return derniere;
}

// Adds up the lines in their order.
void additionne_lignes(std::int16_t derniere) {
    double& total = feuille.valeur_ligne(derniere);
    for (int i = 1; i < derniere; ++i) {
        const double valeur = feuille.valeur_ligne(i);
        range(total, total + valeur, total, valeur);
    }
}

}  // namespace

Total total_colonne(const std::string& texte) {
    const std::int16_t derniere = ajoute_rangee_total();
    additionne_lignes(derniere);
    definit_variable(26, feuille.valeur_ligne(derniere));
    affiche_valeur(derniere);
    std::string nouveau = texte;
    const std::string_view resultat = feuille.resultat_ligne(derniere);
    nouveau += "\r\nZ=";
    if (resultat.size() > 2) nouveau.append(resultat, 2);
    // The total is a line of this calculation: its result can be asked for as well.
    if (!feuille.colonne_resultat.empty()) {
        feuille.colonne_resultat.push_back(1);
        feuille.texte_ecrit = nouveau;
    }
    return {std::move(nouveau), resultat};
}
