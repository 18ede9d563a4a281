// The look of the window on Linux, where the theme gives it all. Changes nothing.
#include "shell/wx/look.hpp"

void habille(wxFrame&) {}
