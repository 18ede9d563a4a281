// What a change of sheet or of number mode brings. Changes the title, the panels, the File menu and
// the context.
#pragma once

// Shows the name of the sheet, its number, the number mode and the angle unit, rebuilds the File
// menu, and clears the variables: no value can be trusted until the next calculation.
void AfficheStatus();
