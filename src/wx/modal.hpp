// What every box and dialog shares: the window is shown as it has become before it opens, and a text
// that the user has entered comes back in the code page.
#pragma once

#include <wx/string.h>

#include <string>

void ouvre_modal();

// The text in Windows-1252, the common characters that it lacks replaced. False, when one can't be:
// the user has been told which.
bool en_page(const wxString& texte, std::string& sortie);
