// The commands: one row each. The menus of the window, the keys and the key help are made from these rows, and one
// dispatcher runs them; a test compares the guide's list of keys with them. Constant data.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "shell/key_codes.hpp"

struct Raccourci {
    int touche = kToucheAucune;      // kToucheAucune: the item has no shortcut
    bool ctrl = false;
    bool maj = false;
};

// What must be down with a key of the text; other modifiers may be: AltGr, which is Ctrl and Alt, does for
// Alt.
enum class Avec { rien, alt, ctrl, maj_ctrl };

// A key of the text that runs its command as it comes up.
struct ToucheRelachee {
    int touche = kToucheAucune;
    Avec avec = Avec::rien;
};

enum class Vues { restent, quittees };   // before a command runs: the sheet comes back from another view

// What a command runs. A row without it doesn't compile.
class Commande {
  public:
    template <class Procedure>
    constexpr Commande(Procedure p) : procedure(p) {}
    Commande(std::nullptr_t) = delete;
    void operator()() const { procedure(); }

  private:
    void (*procedure)();
};

struct LigneCommande {
    int numero = 0;                  // of its item in the window; stays its own for ever, other rows may come
    std::string_view menu{};         // caption of the menu, Windows-1252; "" for a button
    std::string_view nom{};          // name of the item or of the button
    std::string_view procedure{};    // another name of the command, of its procedure; "" without one
    std::string_view libelle{};      // caption
    Raccourci raccourci{};
    ToucheRelachee relachee{};       // key of the text that runs it
    FrappeTouche enfoncee{};         // key of the text that runs it as it goes down, and repeats
    std::string_view mots_aide{};    // key-help words; "" for a command that acts in key-help mode
    bool dite = false;               // its words are said when it runs, too
    Vues vues = Vues::restent;
    std::string_view refus{};        // said instead in a view where the text can't be written; "": runs there
    bool cochable = false;           // its item bears a mark
    bool une_fois = false;           // its key that is held down runs it once
    Commande execute;
};

// The rows of the items in the order of the tree, without the recent files.
std::span<const LigneCommande> lignes_menu();
// The row of that item, or nullptr.
const LigneCommande* ligne_menu(std::string_view nom);
// The row of the item of that number, or nullptr.
const LigneCommande* ligne_numero(int numero);
// The item whose shortcut that is, or "": menus take their keys before the focused control.
std::string_view item_du_raccourci(const FrappeTouche& frappe);
// The command that the text runs as that key comes up, or as it goes down, or nullptr.
const LigneCommande* commande_relachee(const FrappeTouche& frappe);
const LigneCommande* commande_enfoncee(const FrappeTouche& frappe);

// The items of all rows at their design state.
void reinitialise_menus();

// In key-help mode says the command's words, which is all then; otherwise runs it to its end. Failures go
// up.
void lance(const LigneCommande& ligne);
// The same for the command of that name: an item, a button or a procedure. A failure that nothing on its
// way has caught ends it. False when there is none.
bool execute_commande(std::string_view nom);
