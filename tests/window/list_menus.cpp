// Prints the menu table, one item a line: menu, name, caption, shortcut and the words of the key
// help, separated by tabs, in UTF-8. The window's test compares the real menus with it.
#include <iostream>
#include <string>

#include "base/codepage.hpp"
#include "shell/commands.hpp"

namespace {

// A shortcut as "Ctrl+Maj+F5"; nothing without one.
std::string mots(const Raccourci& r) {
    if (r.touche == kToucheAucune) return "";
    const std::string debut = std::string(r.ctrl ? "Ctrl+" : "") + (r.maj ? "Maj+" : "");
    if (r.touche >= kToucheF1 && r.touche <= kToucheF12)
        return debut + "F" + std::to_string(r.touche - kToucheF1 + 1);
    return debut + static_cast<char>(r.touche);
}

}  // namespace

int main() {
    for (const LigneCommande& ligne : lignes_menu())
        std::cout << vers_utf8(ligne.menu) << '\t' << ligne.nom << '\t' << vers_utf8(ligne.libelle)
                  << '\t' << mots(ligne.raccourci) << '\t' << vers_utf8(ligne.mots_aide) << '\n';
}
