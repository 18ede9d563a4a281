// The calculation commands, between the text control and the pass. Change the text of the port and the changed
// flag of the current document.
#pragma once

#include <string_view>

// Told where there is nothing to calculate; the message line has no words for it.
inline constexpr std::string_view kFeuilleVide = "feuille vide";

void mnuCalculItem();            // the sheet
void mnuCalculColonneItem();     // the sheet and the total of its lines
void MnuParleResultatItem();     // says the result of the line under the cursor

// Runs the pass over the text control, shows what it gives and says it.
void recalcul() noexcept;

// The same and, when no line has failed, the column total. Failures of the total go up to the command.
void calcul_colonne();

// Writes the results of the last pass anew, in the current number mode; without a pass, runs one. No command
// of the menus needs it.
void re_valeur() noexcept;
