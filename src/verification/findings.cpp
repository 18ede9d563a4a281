// The rows of the kinds of findings, and their sentences. Changes nothing.
#include "verification/findings.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/codepage.hpp"
#include "base/number.hpp"

namespace {

// In the words %m is the piece, %l what was understood, %v what it gave.
struct LigneConstat {
    GenreConstat genre = GenreConstat::apres;
    std::string_view nom;
    Gravite gravite = Gravite::faux_probable;
    std::string_view titre;
    std::string_view mots;
};

constexpr std::string_view kSuite = "%m est lu %l, la suite n'est pas calculée"_fr;

using enum GenreConstat;
constexpr Gravite kFaux = Gravite::faux_probable;
constexpr Gravite kSavoir = Gravite::a_savoir;

constexpr std::array<LigneConstat, kNombreGenresConstat> kConstats = {{
    {virgule_decimale, "virgule_decimale", kFaux, "virgule"_fr, kSuite},
    {blanc_dans_nombre, "blanc_dans_nombre", kFaux, "blanc dans un nombre"_fr,
     "%m vaut %v, seule la fin du nombre compte"_fr},
    {deux_valeurs, "deux_valeurs", kFaux, "deux valeurs de suite"_fr, "%m vaut %v, la première ne compte pas"_fr},
    {signe_manquant, "signe_manquant", kFaux, "signe manquant"_fr, kSuite},
    {parentheses_vides, "parentheses_vides", kFaux, "parenthèses vides"_fr, kSuite},
    {fermante_en_trop, "fermante_en_trop", kFaux, "parenthèse fermante en trop"_fr, kSuite},
    {pourcentage, "pourcentage", kFaux, "pourcentage"_fr,
     "%m est lu %l, pour cent ne compte que derrière plus et moins"_fr},
    {signe_inconnu, "signe_inconnu", kFaux, "signe inconnu"_fr, "%m est lu %l"_fr},
    {milliers, "milliers", kFaux, "milliers"_fr, "%m est lu %l"_fr},
    {nombre_partiel, "nombre_partiel", kFaux, "nombre"_fr, "%m est lu %l"_fr},
    {nom_long, "nom_long", kFaux, "nom trop long"_fr, "%m est lu %l, un nom de matrice a deux lettres"_fr},
    {deux_egal, "deux_egal", kFaux, "deux signes égal"_fr, kSuite},
    {texte_non_lu, "texte_non_lu", kFaux, "texte non lu"_fr, kSuite},
    {factorielle, "factorielle", kFaux, "point d'exclamation"_fr, "%m est lu %l, la suite est un commentaire"_fr},
    {mot_fin, "mot_fin", kFaux, "lettres fin"_fr, "%m n'est pas calculé"_fr},
    {mot_inc, "mot_inc", kFaux, "lettres inc"_fr, "%m est pris pour l'en-tête d'une table"_fr},
    {mot_air, "mot_air", kFaux, "lettres air"_fr, "%m est pris pour l'en-tête d'une aire"_fr},
    {mot_statx, "mot_statx", kFaux, "statx en commentaire"_fr, "%m est pris pour une ligne de statistiques"_fr},
    {texte_efface, "texte_efface", kFaux, "texte effacé"_fr, "%m est effacé par le calcul"_fr},
    {affectation_perdue, "affectation_perdue", kFaux, "signe égal"_fr,
     "%m est lu %l, le reste est effacé par le calcul"_fr},
    {affectation_vide, "affectation_vide", kFaux, "signe égal"_fr, "%m ne range rien, il faut une lettre seule"_fr},
    {lettre_plus_bas, "lettre_plus_bas", kFaux, "lettre lue trop tôt"_fr, "%l reçoit sa valeur plus bas, ligne %v"_fr},
    {entete_seul, "entete_seul", kFaux, "en-tête seul"_fr, "%m n'a pas de fonction sur la ligne suivante"_fr},
    {signe_apres_operateur, "signe_apres_operateur", kFaux, "deux signes de suite"_fr, "%m n'est pas lu"_fr},
    {exposant, "exposant", kFaux, "puissance de dix"_fr, "dans %m, la lettre E est une variable"_fr},
    {point_seul, "point_seul", kFaux, "point sans chiffre devant"_fr, "%m n'est pas lu"_fr},
    {matrice_et_nombre, "matrice_et_nombre", kFaux, "matrice et nombre"_fr,
     "%m ne calcule pas avec la matrice"_fr},
    {produit_de_matrices, "produit_de_matrices", kFaux, "produit de matrices"_fr,
     "dans %m, un produit de matrices n'est fait qu'à la fin de la ligne"_fr},
    {angle, "angle", kFaux, "unité d'angle"_fr, "%m est calculé en %l"_fr},
    {somme_perdue, "somme_perdue", kFaux, "somme perdue"_fr,
     "%m vaut %v, une fonction dans la fonction change la somme"_fr},
    {argument_perdu, "argument_perdu", kFaux, "argument perdu"_fr,
     "%m vaut %v, la fonction intérieure change les arguments"_fr},
    {mot_operateur, "mot_operateur", kFaux, "opérateur sans valeur"_fr, "dans %m, un mot tient lieu de nombre"_fr},
    {erreur_effacee, "erreur_effacee", kFaux, "erreur oubliée"_fr,
     "dans %m, une erreur est oubliée, le résultat est faux"_fr},
    {element_partiel, "element_partiel", kFaux, "élément"_fr, "%m est lu %l"_fr},
    {colonnes_en_trop, "colonnes_en_trop", kFaux, "rangée inégale"_fr,
     "%m a %v éléments, la première rangée en a %l ; une virgule sépare deux éléments"_fr},
    {effectif_virgule, "effectif_virgule", kFaux, "virgule"_fr,
     "dans %m, la virgule sépare la valeur et son effectif"_fr},
    {lettre_fois, "lettre_fois", kFaux, "lettre x"_fr, "dans %m, x est une variable"_fr},
    {hexadecimal, "hexadecimal", kFaux, "chiffre hexadécimal"_fr,
     "%m : derrière $, ce qui n'est pas de 0 à 9 ou de A à F compte comme 0"_fr},
    {moins_puissance, "moins_puissance", kSavoir, "signe moins et puissance"_fr,
     "%m vaut %v, la puissance est calculée d'abord"_fr},
    {puissance_de_puissance, "puissance_de_puissance", kSavoir, "puissances"_fr,
     "%m vaut %v, la première puissance est calculée d'abord"_fr},
    {non_puissance, "non_puissance", kSavoir, "NOT et puissance"_fr, "%m vaut %v, NOT est calculé d'abord"_fr},
    {zero_montre, "zero_montre", kSavoir, "résultat arrondi à zéro"_fr, "%m vaut %v, il faut plus de décimales"_fr},
    {valeur_coupee, "valeur_coupee", kSavoir, "résultat coupé"_fr, "%m vaut %v"_fr},
    {effectif, "effectif", kSavoir, "effectif"_fr, "dans %m, le nombre derrière la virgule est un effectif"_fr},
    {definition_ouverte, "definition_ouverte", kFaux, "en-tête"_fr,
     "%m n'est jamais fermé ni calculé, il faut FIN en dessous"_fr},
    {pourcentage_du_terme, "pourcentage_du_terme", kFaux, "pourcentage"_fr,
     "dans %m, pour cent porte sur tout le terme"_fr},
    {point_virgule_de_liste, "point_virgule_de_liste", kFaux, "point virgule"_fr,
     "dans %m, une virgule sépare les valeurs d'une liste"_fr},
    {matrice_sans_inverse, "matrice_sans_inverse", kFaux, "déterminant nul"_fr,
     "dans %m, INVMAT rend la matrice elle-même, qui n'a pas d'inverse"_fr},
    {matrice_seule, "matrice_seule", kFaux, "matrice seule"_fr,
     "%m n'est rangé dans aucune matrice, son résultat n'est pas montré"_fr},
    {premiere_rangee, "premiere_rangee", kFaux, "première rangée"_fr,
     "%m a %v éléments, la rangée %l en a moins ; une virgule sépare deux éléments"_fr},
    {ecriture, "ecriture", kFaux, "écriture"_fr, "%m n'est pas compris"_fr},
    {second_statx, "second_statx", kSavoir, "second statx"_fr, "%m répète d'abord le résultat du premier"_fr},
    {determinant_accompagne, "determinant_accompagne", kFaux, "déterminant"_fr,
     "dans %m, DETMAT n'est pas calculé avec le reste, rangez-le d'abord dans une lettre"_fr},
    {matrices_melees, "matrices_melees", kFaux, "matrices mêlées"_fr,
     "dans %m, les opérations se mêlent, faites une opération par ligne"_fr},
    {element_vide, "element_vide", kFaux, "élément vide"_fr, "dans %m, rien entre deux virgules compte comme 0"_fr},
    {liste_manquante, "liste_manquante", kFaux, "liste manquante"_fr,
     "%m n'est pas calculé, il faut deux listes en dessous"_fr},
    {produit_sans_signe, "produit_sans_signe", kSavoir, "produit sans signe"_fr,
     "dans %m, la division est calculée d'abord"_fr},
    {puissance_divisee, "puissance_divisee", kSavoir, "puissance et division"_fr,
     "dans %m, la puissance est calculée d'abord"_fr},
    {point_dix, "point_dix", kSavoir, "point devant 10"_fr, "dans %m, le point est celui d'un nombre décimal"_fr},
    {lettre_sans_valeur, "lettre_sans_valeur", kSavoir, "lettre sans valeur"_fr,
     "dans %m, %l n'a pas encore de valeur et compte comme 0"_fr},
    {lettre_changee, "lettre_changee", kSavoir, "lettre changée"_fr, "dans %m, %l a changé de valeur ligne %v"_fr},
    {partie_entiere, "partie_entiere", kSavoir, "partie entière"_fr, "%m vaut %v, %l"_fr},
    {couple_incomplet, "couple_incomplet", kFaux, "couple incomplet"_fr,
     "dans %m, un couple a deux valeurs, avec une virgule entre elles"_fr},
    {lettre_de_fon, "lettre_de_fon", kFaux, "lettre de FON"_fr, "dans %m, FON a changé %l, lu ensuite"_fr},
}};

static_assert([] {
    for (std::size_t i = 0; i < kConstats.size(); ++i)
        if (kConstats[i].genre != static_cast<GenreConstat>(i) || kConstats[i].titre.empty()) return false;
    return true;
}(), "each kind of finding has its row, in the order of the kinds");

static_assert(std::ranges::all_of(kConstats, [](const LigneConstat& l) {
    return !l.mots.empty() && std::ranges::count(kConstats, l.nom, &LigneConstat::nom) == 1;
}), "each kind has words, and a name of its own");

const LigneConstat& ligne_de(GenreConstat genre) { return kConstats[static_cast<std::size_t>(genre)]; }

}  // namespace

Gravite gravite(GenreConstat genre) { return ligne_de(genre).gravite; }

std::string_view nom_constat(GenreConstat genre) { return ligne_de(genre).nom; }

std::string_view titre_constat(GenreConstat genre) { return ligne_de(genre).titre; }

std::string_view nom_gravite(Gravite g) { return g == Gravite::a_savoir ? "à savoir"_fr : "faux probable"_fr; }

std::string explication(const Constat& constat) {
    std::string texte;
    std::string_view mots = ligne_de(constat.genre).mots;
    if (constat.lu.empty() && mots.starts_with("%m est lu %l"_fr)) mots = ligne_de(GenreConstat::ecriture).mots;
    for (std::size_t i = 0; i < mots.size(); ++i) {
        if (mots[i] != '%') {
            texte += mots[i];
            continue;
        }
        const char quoi = mots[++i];
        texte += quoi == 'm' ? constat.morceau : quoi == 'l' ? constat.lu : constat.valeur;
    }
    return texte;
}

std::string phrase(const Constat& constat) {
    std::string texte = std::string("ligne "_fr) + chiffres(constat.ligne) + ", ";
    if (gravite(constat.genre) == Gravite::a_savoir) texte.append(nom_gravite(Gravite::a_savoir)) += ", ";
    texte.append(titre_constat(constat.genre)).append(" : "_fr) += explication(constat);
    if (!constat.propose.empty()) texte.append(" ; tapez "_fr) += constat.propose;
    return texte;
}
