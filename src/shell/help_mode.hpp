// Key-help mode: each command says its name instead of running. One instance, `aide`.
#pragma once

#include <string_view>

#include "base/codepage.hpp"

struct Aide {
    bool aide_touche = false;            // commands say what they do instead of doing it
    bool aide_touche_traitee = false;    // a command has said its words
};
extern Aide aide;

// The words of commands that a button runs as well.
inline constexpr std::string_view kMotsCalcul = "calcul de la feuille"_fr;
inline constexpr std::string_view kMotsModifTexte = "Remplacement sur le texte"_fr;
inline constexpr std::string_view kMotsQuitter = "quitter la calculatrice"_fr;

// In key-help mode says a command's words, notes that the key was handled and answers true: the command is
// not run. A command without words acts in key-help mode too. Kept: see the oddities,
// items-that-act-in-key-help.
bool annonce_mots(std::string_view mots);
