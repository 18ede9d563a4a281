// Key-help mode: the instance of its flags and the announcement of a command.
#include "shell/help_mode.hpp"

#include "platform/message.hpp"
#include "shell/menu_table.hpp"

Aide aide;

bool annonce_mots(std::string_view mots) {
    if (!aide.aide_touche || mots.empty()) return false;
    dit(mots);
    aide.aide_touche_traitee = true;
    return true;
}

bool annonce_item(std::string_view nom) {
    if (!aide.aide_touche) return false;
    const LigneMenu* ligne = ligne_menu(nom);
    return ligne != nullptr && annonce_mots(ligne->mots_aide);
}
