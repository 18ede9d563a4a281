// The calculation commands. Change the sheet through the pass.
#pragma once

void mnuCalculItem();            // the sheet
void mnuCalculColonneItem();     // the sheet and the total of its lines
void MnuParleResultatItem();     // says the result of the line under the cursor
