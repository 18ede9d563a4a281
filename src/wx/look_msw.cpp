// The look of the window on Windows: the program's icon, and the background of a dialog, on which
// the controls and their words can be seen. The focus is always drawn: the system hides it from who has
// used the mouse last.
#include "wx/look.hpp"

#include <windows.h>
#include <wx/icon.h>
#include <wx/settings.h>

void habille(wxFrame& fenetre_nue) {
    fenetre_nue.SetIcons(wxIconBundle("voxtab", nullptr));
    fenetre_nue.SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    SendMessageW(fenetre_nue.GetHandle(), WM_CHANGEUISTATE,
                 MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}
