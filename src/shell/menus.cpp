// The state of the items of the menus, and the files on top of the File menu. Changes `menus`.
#include "shell/menus.hpp"

#include <cstddef>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "settings/settings.hpp"

Menus menus;

namespace {

// Gives an item another caption.
void pose_libelle(std::string_view nom, std::string_view libelle) {
    if (EtatItem* item = etat_item(nom)) item->libelle = libelle;
}

// An item of the File menu reads its number and the path.
void remplit_item(int k, const std::string& nom, bool actif) {
    EtatItem& item = menus.recents[static_cast<std::size_t>(k)];
    item.libelle = chiffres(k) + " " + nom;
    item.visible = true;
    item.actif = actif;
}

}  // namespace

void vide_menus() {
    menus = Menus{};
    for (int i = 0; i <= kItemsRecents; ++i)
        menus.recents[static_cast<std::size_t>(i)] = {kNomRecents, i, "", false, false, false};
}

EtatItem* etat_item(std::string_view nom) {
    for (EtatItem& item : menus.items)
        if (item.nom == nom) return &item;
    return nullptr;
}

EtatItem* etat_recent(int index) {
    if (index < 1 || index > kItemsRecents) return nullptr;
    return &menus.recents[static_cast<std::size_t>(index)];
}

void rebatit_menu_fichier() {
    int k = 0;
    while (k < documents.nombre_document) {
        ++k;
        remplit_item(k, reglages.table_ini(k).nom, false);
    }
    for (int rang = k + 1; rang <= kDocumentsMaxi; ++rang) {
        const std::string& nom = reglages.table_ini(rang).nom;
        if (nom != reglages.nom_sanstitre) remplit_item(++k, nom, true);
    }
    while (k < kItemsRecents) {
        EtatItem& item = menus.recents[static_cast<std::size_t>(++k)];
        item.actif = item.visible = false;
    }
}

void pose_libelle_matrice(bool en_colonne) {
    pose_libelle(kItemMatrice, en_colonne ? "affichage matrice ligne/colonne : en colonne"_fr
                                          : "affichage matrice ligne/colonne : en ligne"_fr);
}

void pose_libelle_stat(bool restreint, std::string_view complet) {
    pose_libelle(kItemStat,
                 restreint ? "Résultat statistique restreint/complet : restreint"_fr : complet);
}

void pose_libelle_son(bool avec) {
    pose_libelle(kItemSon,
                 avec ? "Son à la fin du calcul : oui"_fr : "Son à la fin du calcul : non"_fr);
}

void pose_libelle_attention(bool avec) {
    pose_libelle(kItemAttention,
                 avec ? "Attention après le calcul : oui"_fr : "Attention après le calcul : non"_fr);
}
