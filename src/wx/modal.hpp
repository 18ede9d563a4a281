// What every box and dialog shares: before it opens the window is brought up to date, and a text that
// the user has entered is brought to the code page.
#pragma once

#include <wx/string.h>

#include <string>

// Brings the window up to date: to be called before a box or dialog opens.
void ouvre_modal();

// `sortie` becomes the text in Windows-1252; common characters that the code page lacks are replaced.
// False when one can't be: a box has told which, and `sortie` is as it was.
bool en_page(const wxString& texte, std::string& sortie);
