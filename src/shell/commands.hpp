// The commands, by the names of their menu items. Each runs to its end, says what it does in
// key-help mode, and reports a failure that nothing on its way has caught.
#pragma once

#include <string_view>

void mnuCalculItem();            // the sheet
void mnuCalculColonneItem();     // the sheet and the total of its lines
void MnuParleResultatItem();     // says the result of the line under the cursor
void mnuEntierItem();            // number modes: the sheet is calculated again
void mnuFlottantItem();
void mnuPuissanceItem();
void mnuHexaItem();
void mnuNombreDecimalItem();     // asks for the decimals shown
void mnuColonneMatrice();        // matrices in line or in column, from the next calculation on
void mnuLigneStat();             // statistics complete or restricted, from the next calculation on

// Runs the command of that name. False when there is none.
bool execute_commande(std::string_view nom);
