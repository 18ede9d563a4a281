// Of the menu Outils: undo and redo of the sheet's changes, and the sound of a calculation. Change the sheet, `outils`
// and its file. The other items stand in files of their own.
#pragma once

#include <string_view>

#include "base/codepage.hpp"

// Said where there is no change, or the text can't be written.
inline constexpr std::string_view kRienAAnnuler = "rien à annuler"_fr;
inline constexpr std::string_view kRienARetablir = "rien à rétablir"_fr;

void annule();              // takes the last change back and says the line under the cursor
void retablit();            // makes the change again that was taken back last
void mnuSonItem();          // a sound at the end of a calculation, or none
void sonne_fin_de_calcul(); // plays that sound, when the user wants it
