// The keys of the toolkit as the core knows them. One file per system implements this header.
#pragma once

#include <wx/event.h>
#include <wx/window.h>

#include "shell/events.hpp"

// The key of a press or release, with its modifiers at that moment; AltGr is Ctrl and Alt together.
// Valid while that event is handled.
FrappeTouche frappe_de(const wxKeyEvent& evenement);

// The character that a press types, 0 for none: a command's key, an arrow, Delete.
int caractere_de(const wxKeyEvent& evenement);

// The press is of a dead key: its accent comes with the next letter.
bool est_touche_morte(const wxKeyEvent& evenement);

// The press goes to that control, which has just got the focus. Valid while that event is handled.
void rejoue_frappe(const wxKeyEvent& evenement, wxWindow& controle);

// A menu is open and has the keys, though a control keeps the focus.
bool menu_ouvert();
