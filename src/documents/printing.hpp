// Printing of the sheet as plain text. Changes no state.
#pragma once

#include <string>
#include <string_view>

std::string texte_imprime(std::string_view texte);   // margin of five blanks, form feed at the end
void mnuImprimer();
void mnuParametreImprimer();
