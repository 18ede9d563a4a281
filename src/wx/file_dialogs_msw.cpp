// The file dialogs of Windows begin in the line for the name by themselves, and the font dialog names
// its parts. Changes no state.
#include "wx/file_dialogs.hpp"

// The system looks at no capitals. After a plain extension the toolkit would have the dialog add it to
// names that have another one; the star lists nothing more to speak of and keeps it from that.
wxString motif_du_systeme(const wxString& motif) { return motif + "*"; }

void commence_par_le_nom(wxFileDialog&) {}

void prepare_police(wxFontDialog&) {}

wxString police_montree(wxFontDialog& dialogue) {
    const wxFontData& donnees = dialogue.GetFontData();
    const wxFont& choisie = donnees.GetChosenFont();
    return (choisie.IsOk() ? choisie : donnees.GetInitialFont()).GetFaceName();
}
