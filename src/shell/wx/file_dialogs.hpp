// What the toolkit doesn't offer of the system's file dialog. One file per system stands behind this
// header.
#pragma once

#include <wx/filedlg.h>

// A dialog to open a file begins in a line where its name is typed, as the one to save does.
void commence_par_le_nom(wxFileDialog& dialogue);
