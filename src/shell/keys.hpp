// The keys that are down and what they do in the text. One instance of state, `clavier`; the commands
// that keys run change the sheet.
#pragma once

#include <vector>

#include "shell/key_codes.hpp"

struct ToucheTenue {
    FrappeTouche frappe;             // as it went down
    bool dans_texte = false;         // the text had the focus then
    bool servie = false;             // its press has run a command: its release runs none
};

struct Clavier {
    std::vector<ToucheTenue> tenues; // keys that are down, in the order of their presses
    bool alt_attend = false;         // Alt came up before a key that it goes with
};
extern Clavier clavier;

// Notes that a key goes down. True when it is down already, repeats, and its command comes on its
// release: the repetition must do nothing, whatever the modifiers are by now.
bool note_pression(bool dans_texte, const FrappeTouche& frappe);
void note_servie(int touche);        // the press of that key has run a command
bool est_tenue(int touche);
void oublie_touche(int touche);      // it came up elsewhere
void oublie_touches();               // the window has lost the keyboard

// A key whose command comes on its release: its press must neither type nor move anything.
bool touche_reservee(const FrappeTouche& frappe);
// A key that would change the text it goes to: `caractere`, which is 0 for none, a line end, a deletion, cutting and
// pasting.
bool ecrirait(const FrappeTouche& frappe, int caractere);
// A key of the text comes up and runs its command, once for one press: a modifier counts that was held
// as the key went down or as it came up.
void touche_texte(const FrappeTouche& frappe);
