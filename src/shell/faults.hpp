// Commands on the faults of a sheet: the place of the last calculation's fault, the lines in error, and the entry of
// the guide that explains a message. Change the cursor, the view and what is said.
#pragma once

#include <string_view>

#include "base/codepage.hpp"

// Said where there is nothing to go to.
inline constexpr std::string_view kPasDeFaute = "pas de faute connue, faites Alt+C"_fr;
inline constexpr std::string_view kFinDuCalcul = "fin du calcul"_fr;
inline constexpr std::string_view kPasPlusBas = "pas de ligne en erreur plus bas"_fr;
inline constexpr std::string_view kPasPlusHaut = "pas de ligne en erreur plus haut"_fr;
inline constexpr std::string_view kPasDExplication = "pas de message à expliquer"_fr;
inline constexpr std::string_view kPasDansLeGuide = "ce message n'est pas dans le guide"_fr;

void mnuAllerFauteItem();          // to the column where the last calculation failed, and what stands there
void mnuExpliquerItem();           // the guide, at the entry of the message that was heard or that the line bears
void mnuErreurSuivanteItem();      // to the next line that bears an error
void mnuErreurPrecedenteItem();    // to the one above
