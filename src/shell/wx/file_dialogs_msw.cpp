// The file dialog of Windows: it begins in the line for the name, to open as to save. Changes nothing.
#include "shell/wx/file_dialogs.hpp"

void commence_par_le_nom(wxFileDialog&) {}
