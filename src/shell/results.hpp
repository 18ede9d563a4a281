// Commands on the results of the sheet: the bare number to the clipboard, and character by character. Change the
// clipboard and what is said, never the sheet.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.hpp"

inline constexpr std::string_view kPasDeResultat = "pas de résultat"_fr;
inline constexpr std::string_view kPlusieursResultats = "plusieurs résultats sur cette ligne"_fr;
inline constexpr std::string_view kDefinition = "une définition n'a pas de résultat"_fr;
inline constexpr std::string_view kPressePapiersRefuse = "le presse-papiers ne répond pas"_fr;

void mnuCopierResultatItem();   // the number of the cursor's line, or of the selected lines one a line
void mnuEpelerItem();           // the number of the cursor's line, character by character; of the selected
                                // lines one behind the other, the first 500 characters or so
