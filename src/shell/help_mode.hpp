// Key-help mode: each command says its name instead of running. One instance, `aide`.
#pragma once

#include <string_view>

struct Aide {
    bool aide_touche = false;            // commands say what they do instead of doing it
    bool aide_touche_traitee = false;    // a command has said its words
};
extern Aide aide;

// In key-help mode says the words of that menu item, notes that the key was handled and answers true:
// the command ends. An item without words acts in key-help mode too.
bool annonce_item(std::string_view nom);

// The same for a command of the keys alone, which stands in no menu.
bool annonce_mots(std::string_view mots);
