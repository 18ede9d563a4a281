// What the toolkit doesn't offer of the system's file and font dialogs. One file per system implements this
// header.
#pragma once

#include <wx/filedlg.h>
#include <wx/fontdlg.h>

// The pattern of a kind of files, "*.VXT", so that names in any capitals are listed, and so that the
// dialog itself adds nothing to a name.
wxString motif_du_systeme(const wxString& motif);
// A dialog to open a file begins in a line where its name is typed, as the one to save does.
void commence_par_le_nom(wxFileDialog& dialogue);

// Gives the parts of the font dialog names that a reader can say, and has it begin on the font in use.
void prepare_police(wxFontDialog& dialogue);
// The font that stands chosen in it, "" for none. One that isn't installed stands there as another.
wxString police_montree(wxFontDialog& dialogue);
