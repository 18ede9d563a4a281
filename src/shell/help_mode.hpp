// Key-help mode: each command says its name instead of running. One instance, `aide`.
#pragma once

#include <string_view>

struct Aide {
    bool aide_touche = false;            // commands say what they do instead of doing it
    bool aide_touche_traitee = false;    // a command has said its words
};
extern Aide aide;

// In key-help mode says `mots`, notes that the key was handled and answers true: the command ends.
bool annonce_aide(std::string_view mots);
