// The file dialogs of Windows begin in the line for the name by themselves. Changes no state.
#include "shell/wx/file_dialogs.hpp"

void commence_par_le_nom(wxFileDialog&) {}
