// Printing of the sheet as plain text. Changes no state.
#pragma once

void mnuImprimer();
void mnuParametreImprimer();
