// The boxes, the entry box and the dialogs of the port, as windows of the system with French words.
#pragma once

void installe_boites();          // boxes and entry box (dialogs.cpp)
void installe_dialogues();       // file, font and printer dialogs (file_dialogs.cpp)
