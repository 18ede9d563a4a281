// The instance of the sheet's tables, what others may ask of it, and the insertion into the rebuilt text.
#include "state/sheet.hpp"

#include <algorithm>

Feuille feuille;

std::uint32_t passes_commencees() { return feuille.passes; }

bool passe_refusee() { return feuille.passe_refusee; }

int lignes_de_la_feuille() { return feuille.nombre_ligne; }

std::string& resultat_bloc() { return feuille.resultat_bloc; }

void note_statistiques(bool couples) { (couples ? feuille.statxy_present : feuille.statx_present) = true; }

void note_calcul_en_colonne(bool en_colonne) { feuille.calcul_en_colonne = en_colonne; }

void pose_resultat_courant(std::string_view texte) { feuille.resultat_ligne(feuille.ligne_courante) = texte; }

std::string& formule_de(std::int16_t numero) { return feuille.formule_ligne(numero); }

void prepare_formules(std::size_t lignes) { feuille.formule_ligne.redimensionne(lignes); }
void prepare_valeurs(std::size_t lignes) { feuille.valeur_ligne.redimensionne(lignes); }

void efface_resultats() {
    for (std::string& resultat : feuille.resultat_ligne) resultat.clear();
    for (double& valeur : feuille.valeur_ligne) valeur = 0;
}

void reinitialise_feuille() { feuille = Feuille{}; }

std::size_t lignes_closes(std::string_view texte) {
    std::size_t compte = 0;
    for (std::size_t i = texte.find("\r\n"); i != std::string_view::npos; i = texte.find("\r\n", i + 2))
        ++compte;
    return compte;
}

void insere_texte_reconstruit(std::size_t position, const std::string& texte) {
    std::string& cible = feuille.texte_reconstruit;
    position = std::min(position, cible.size());
    const std::size_t dessous = lignes_closes(std::string_view(cible).substr(position));
    const std::size_t avant = position == 0 ? std::string::npos : cible.rfind("\r\n", position - 1);
    cible.insert(position, texte);
    std::vector<std::int32_t>& colonnes = feuille.colonne_resultat;
    if (dessous >= colonnes.size()) return;
    const std::size_t debut = avant == std::string::npos ? 0 : avant + 2;
    colonnes[colonnes.size() - 1 - dessous] = static_cast<std::int32_t>(position - debut);
}
