// The commands, by the names of their menu items, buttons and editing procedures. Each runs to its
// end, says what it does in key-help mode, and a failure that nothing on its way has caught ends it.
#pragma once

#include <string_view>

void mnuCalculItem();            // the sheet
void mnuCalculColonneItem();     // the sheet and the total of its lines
void MnuParleResultatItem();     // says the result of the line under the cursor

// Runs the command of that name. False when there is none.
bool execute_commande(std::string_view nom);
