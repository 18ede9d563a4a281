// What a text control does with a key: characters, deletion, cursor keys and selection.
#pragma once

#include "shell/events.hpp"

// A key with the modifiers held down; code 0: the modifiers alone.
struct Frappe {
    FrappeTouche touche;
    int caractere = 0;  // that the key types in this state, 0 for none
};

// Codes of the characters that aren't signs.
inline constexpr int kCaractereArriere = 8;
inline constexpr int kCaractereTab = 9;
inline constexpr int kCaractereEntree = 13;
inline constexpr int kCaractereEchap = 27;

// The key is pressed in `txt`: its character is reported first, then the text or the cursor
// changes.
void frappe_texte(const Frappe& frappe);
