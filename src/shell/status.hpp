// What a change of sheet or of number mode brings. Changes the context.
#pragma once

// Clears the variables and the results kept of the last pass: after a change of mode or of sheet no
// value can be trusted until the next calculation.
void AfficheStatus();
