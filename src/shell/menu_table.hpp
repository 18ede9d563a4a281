// The menu tree, its shortcuts and the words of the key-help mode, once: the window, the key help, the
// guide's list of keys and the tests are made from this table. Constant data; the changing state of
// the items is in `menus`.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

// Key codes: letters and digits are their capital's code; the others stand above the characters.
enum Touche : int {
    kToucheAucune = 0,
    kToucheEchap = 27,
    kToucheEntree = 13,
    kToucheF1 = 0x101, kToucheF2, kToucheF3, kToucheF4, kToucheF5, kToucheF6, kToucheF7, kToucheF8,
    kToucheF9, kToucheF10, kToucheF11, kToucheF12,
    kToucheGauche = 0x120, kToucheDroite, kToucheHautFleche, kToucheBas, kToucheDebut, kToucheFin,
    kTouchePagePrecedente, kTouchePageSuivante, kToucheInser, kToucheSuppr, kToucheArriere,
    kToucheTab, kToucheMaj, kToucheCtrl, kToucheAlt, kToucheAutre
};

struct Raccourci {
    int touche = kToucheAucune;      // code above; kToucheAucune: the item has no shortcut
    bool ctrl = false;
    bool maj = false;
};

struct LigneMenu {
    std::string_view menu;           // caption of the menu, Windows-1252
    std::string_view nom;            // name of the item
    std::string_view libelle;        // its caption
    Raccourci raccourci;
    std::string_view mots_aide;      // key-help words; "" for an item that acts in key-help mode
};

inline constexpr int kItemsRecents = 15;   // mnuOuvrirSousMenuItem(1) to (15), first in "&Fichier"
inline constexpr std::string_view kNomRecents = "mnuOuvrirSousMenuItem";

// The rows in the order of the tree, without the recent files.
const std::vector<LigneMenu>& lignes_menu();
// The row of that item, or nullptr.
const LigneMenu* ligne_menu(std::string_view nom);

// What changes of an item.
struct EtatItem {
    std::string_view nom;            // "mnuOuvrirSousMenuItem" for the recent files
    int index = 0;                   // 1 to 15 for these, otherwise 0
    std::string libelle;             // caption, Windows-1252
    bool coche = false;
    bool actif = true;
    bool visible = true;
};

struct Menus {
    std::array<EtatItem, kItemsRecents + 1> recents;   // 1 to 15
    std::vector<EtatItem> items;                       // beside lignes_menu()
};
extern Menus menus;

// The items at their design state: recent files hidden, captions of the table.
void reinitialise_menus();
// The state of an item, or nullptr.
EtatItem* etat_item(std::string_view nom);
// The state of a recent file's item, 1 to 15, or nullptr.
EtatItem* etat_recent(int index);
// Gives an item another caption.
void pose_libelle(std::string_view nom, std::string_view libelle);
// Captions that tell what is chosen: matrices in a column or in a line; statistics restricted, or
// `complet`, which isn't written everywhere alike.
void pose_libelle_matrice(bool en_colonne);
void pose_libelle_stat(bool restreint, std::string_view complet);
// Whether the end of a calculation is heard.
void pose_libelle_son(bool avec);
