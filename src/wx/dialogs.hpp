// The boxes, the entry box and the dialogs of the port, as windows of the system with French words.
#pragma once

#include <string_view>

void installe_boites();          // boxes and entry box (dialogs.cpp)
void installe_dialogues();       // file, font and printer dialogs (file_dialogs.cpp)

// Asks whether a file is to be replaced. Enter alone answers No: what is there stays.
bool demande_remplacement(std::string_view texte);
