// The instance of the sheet's tables, what others may ask of it, and the insertion into the rebuilt text.
#include "state/sheet.hpp"

#include <algorithm>
#include <utility>

Feuille feuille;

std::uint32_t passes_commencees() { return feuille.passes; }

bool passe_refusee() { return feuille.passe_refusee; }

int lignes_de_la_feuille() { return feuille.nombre_ligne; }

std::string& resultat_bloc() { return feuille.resultat_bloc; }

void note_statistiques(bool couples) { (couples ? feuille.statxy_present : feuille.statx_present) = true; }

void note_calcul_en_colonne(bool en_colonne) { feuille.calcul_en_colonne = en_colonne; }

void pose_resultat_courant(std::string_view texte) { feuille.resultat_ligne.pose(feuille.ligne_courante, texte); }

void pose_formule(std::int16_t numero, std::string_view texte) { feuille.formule_ligne.pose(numero, texte); }

void prepare_formules(std::size_t lignes) { feuille.formule_ligne.redimensionne(lignes); }
void prepare_valeurs(std::size_t lignes) { feuille.valeur_ligne.redimensionne(lignes); }

void efface_resultats() {
    feuille.resultat_ligne.efface();
    for (double& valeur : feuille.valeur_ligne) valeur = 0;
}

// The memory of the tables stays with them, unless the sheet was far longer than most.
void reinitialise_feuille() {
    constexpr std::size_t kMemoireGardee = std::size_t{16} << 20;
    Feuille avant = std::exchange(feuille, Feuille{});
    const std::size_t memoire = avant.formule_ligne.memoire() + avant.resultat_ligne.memoire() +
                                avant.texte_reconstruit.capacity() + avant.texte_ecrit.capacity();
    if (memoire > kMemoireGardee) return;
    avant.valeur_ligne.redimensionne(0);
    avant.formule_ligne.commence(0);
    avant.resultat_ligne.commence(0);
    avant.texte_reconstruit.clear();
    avant.texte_ecrit.clear();
    avant.colonne_resultat.clear();
    feuille.valeur_ligne = std::move(avant.valeur_ligne);
    feuille.formule_ligne = std::move(avant.formule_ligne);
    feuille.resultat_ligne = std::move(avant.resultat_ligne);
    feuille.texte_reconstruit = std::move(avant.texte_reconstruit);
    feuille.texte_ecrit = std::move(avant.texte_ecrit);
    feuille.colonne_resultat = std::move(avant.colonne_resultat);
}

std::size_t lignes_closes(std::string_view texte) {
    std::size_t compte = 0;
    for (std::size_t i = texte.find("\r\n"); i != std::string_view::npos; i = texte.find("\r\n", i + 2))
        ++compte;
    return compte;
}

void insere_texte_reconstruit(std::size_t position, std::string_view texte) {
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
