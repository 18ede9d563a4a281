// The user's hand: how keys reach the menus, the focused control and the program.
#pragma once

#include "support/script_words.hpp"

// Presses a key with its modifiers and releases all: "Ctrl+Maj+S", "F9", "Alt".
void touche(Etape& etape);
// Presses a key, or modifiers, which then stay down: "Alt". Modifiers named with a key, "Alt+C", are those
// that the system reports for that press alone, as when one is latched.
void presse(Etape& etape);
// Releases a key, or modifiers.
void lache(Etape& etape);
// Types each character of a text without modifiers.
void tape(Etape& etape);
// Clicks a button or an option. Refuses one that can't be reached.
void clique(Etape& etape);
// Chooses an item of the menus. Refuses one that is hidden or disabled.
void choisit(Etape& etape);
// The user has moved the cursor, and has selected that much.
void curseur(Etape& etape);
