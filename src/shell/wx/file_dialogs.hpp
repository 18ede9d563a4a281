// What the toolkit doesn't offer of the system's file dialog. One file per system stands behind this
// header.
#pragma once

#include <wx/filedlg.h>

// The pattern of a kind of files, "*.VXT", so that names in any capitals are listed, and so that the
// dialog itself adds nothing to a name.
wxString motif_du_systeme(const wxString& motif);
// A dialog to open a file begins in a line where its name is typed, as the one to save does.
void commence_par_le_nom(wxFileDialog& dialogue);
