// What changes of the items of the menus: captions, marks, and the open and recent files on top of the
// File menu. One instance, `menus`; the rows of the items are in commands.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

inline constexpr int kItemsRecents = 15;   // mnuOuvrirSousMenuItem(1) to (15), first in "&Fichier"
inline constexpr std::string_view kNomRecents = "mnuOuvrirSousMenuItem";

// Items whose caption or mark tells an option, those that work on what was heard, and the one that
// ends the program.
inline constexpr std::string_view kItemDerniereFeuille = "mnuDerniereFeuilleItem";
inline constexpr std::string_view kItemMatrice = "mnuColonneMatrice";
inline constexpr std::string_view kItemStat = "mnuLigneStat";
inline constexpr std::string_view kItemSon = "mnuSonItem";
inline constexpr std::string_view kItemAttention = "mnuAttentionItem";
inline constexpr std::string_view kItemExpliquer = "mnuExpliquerItem";
inline constexpr std::string_view kItemRepeter = "mnuRepeterItem";
inline constexpr std::string_view kItemQuitter = "mnuQuitterItem";

// What changes of an item.
struct EtatItem {
    std::string_view nom;            // kNomRecents for the recent files
    int index = 0;                   // 1 to 15 for these, otherwise 0
    std::string libelle;             // caption, Windows-1252
    bool coche = false;
    bool actif = true;
    bool visible = true;
};

struct Menus {
    std::array<EtatItem, kItemsRecents + 1> recents;   // 1 to 15
    std::vector<EtatItem> items;                       // in the order of lignes_menu()
};
extern Menus menus;

// No item but the recent files, which are hidden.
void vide_menus();
// The state of an item, or nullptr.
EtatItem* etat_item(std::string_view nom);
// The state of a recent file's item, 1 to 15, or nullptr.
EtatItem* etat_recent(int index);
// Shows the open sheets, which can't be chosen there, and below them the recent files.
void rebatit_menu_fichier();
// Captions that tell what is chosen: matrices in a column or in a line; statistics restricted, or
// `complet`, which isn't written everywhere alike.
void pose_libelle_matrice(bool en_colonne);
void pose_libelle_stat(bool restreint, std::string_view complet);
// Whether the end of a calculation is heard.
void pose_libelle_son(bool avec);
// Whether a calculation warns.
void pose_libelle_attention(bool avec);
