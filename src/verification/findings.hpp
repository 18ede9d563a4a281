// What a check of the sheet can find: one row a kind, with its name, how grave it is and its words. A new kind
// is a number at the end of `GenreConstat` and a row at the end of the table. Holds no state.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

enum class GenreConstat : std::uint8_t {
    virgule_decimale, blanc_dans_nombre, deux_valeurs, signe_manquant, parentheses_vides, fermante_en_trop,
    pourcentage, signe_inconnu, milliers, nombre_partiel, nom_long, deux_egal, texte_non_lu, factorielle,
    mot_fin, mot_inc, mot_air, mot_statx, texte_efface, affectation_perdue, affectation_vide, lettre_plus_bas,
    entete_seul, signe_apres_operateur, exposant, point_seul, matrice_et_nombre, produit_de_matrices, angle,
    somme_perdue, argument_perdu, mot_operateur, erreur_effacee, element_partiel, colonnes_en_trop,
    effectif_virgule, lettre_fois, hexadecimal,
    moins_puissance, puissance_de_puissance, non_puissance, zero_montre, valeur_coupee, effectif,
    definition_ouverte, pourcentage_du_terme, point_virgule_de_liste, matrice_sans_inverse, matrice_seule,
    premiere_rangee, ecriture, second_statx, determinant_accompagne, matrices_melees,
    element_vide, liste_manquante, produit_sans_signe, puissance_divisee, point_dix, lettre_sans_valeur,
    lettre_changee, partie_entiere, couple_incomplet, lettre_de_fon,
    apres   // the end: new kinds stand in front of it
};
inline constexpr int kNombreGenresConstat = static_cast<int>(GenreConstat::apres);

// How grave: the value is not what the line looks like, or the line is right and surprising.
enum class Gravite : std::uint8_t { faux_probable, a_savoir };

struct Constat {
    GenreConstat genre;
    int ligne = 0;             // from 1, in the sheet that was read
    int ligne_ecrite = 0;      // the same line in the text that the pass wrote
    int colonne = 0;           // from 1: where the piece begins
    std::string morceau{};       // what the user wrote
    std::string lu{};            // what was understood of it
    std::string valeur{};        // and what it gave
    std::string propose{};       // what was probably meant, ready to be typed; "" where nobody can know
};

Gravite gravite(GenreConstat genre);
std::string_view nom_constat(GenreConstat genre);       // for programs: small letters, "_"
std::string_view titre_constat(GenreConstat genre);     // a few French words
std::string_view nom_gravite(Gravite g);                // "faux probable", "à savoir"

// What was understood, in words.
std::string explication(const Constat& constat);

// One short French sentence: "ligne 3, virgule : 1,5+2 est lu 1, la suite n'est pas calculée ; tapez 1.5+2".
std::string phrase(const Constat& constat);
