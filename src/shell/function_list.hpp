// The keys of the list of functions: Enter takes the function of the cursor's line into the sheet, a letter goes to the
// next function that begins with it. Change the cursor, the view and the sheet.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "shell/key_codes.hpp"

inline constexpr std::string_view kPasDeFonctionIci = "pas de fonction sur cette ligne"_fr;
inline constexpr std::string_view kPasDeFonctionEn = "pas de fonction en "_fr;

// True for a key that the list takes for itself, while it is shown.
bool est_touche_de_liste(const FrappeTouche& frappe);

// What that key does.
void touche_de_liste(const FrappeTouche& frappe);

// What Enter writes for a line of the list: the name with "(", without it for a name that stands alone, with blanks
// for an operator that is a word; a heading of a table gets its usual letter. "" for a line without a name.
std::string texte_de_fonction(std::string_view ligne);
