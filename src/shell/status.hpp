// What a change of sheet or of number mode brings. Changes the title, the panels, the File menu and
// the context.
#pragma once

#include <string_view>

// Shows the name of the sheet, its number, the number mode and the angle unit, rebuilds the File
// menu, and clears the variables: no value can be trusted until the next calculation.
void AfficheStatus();

// The angle unit as the status line names it.
std::string_view mots_angle();
