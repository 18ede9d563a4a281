// The look of the window on Windows: the program's icon, and the background of a dialog, on which
// the controls and their words can be seen.
#include "shell/wx/look.hpp"

#include <wx/icon.h>
#include <wx/settings.h>

void habille(wxFrame& fenetre_nue) {
    fenetre_nue.SetIcons(wxIconBundle("voxtab", nullptr));
    fenetre_nue.SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
}
