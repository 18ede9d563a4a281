// What the window gets on its system beside its contents: icon, background. One file per system
// implements this header.
#pragma once

#include <wx/frame.h>

void habille(wxFrame& fenetre_nue);
