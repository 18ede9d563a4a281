// Printing: the text that the core sends, in its font, on the system's printer. One file per system
// implements this header.
#pragma once

#include <wx/window.h>

#include <string>
#include <string_view>

#include "base/codepage.hpp"

// The printer dialog; what the user chooses there holds for what is printed from then on. False on
// Cancel.
bool choisit_imprimante(wxWindow* parent);

// From now on printing goes into that PDF file instead of a printer.
void imprime_vers(const std::string& fichier_pdf);

// Said when it fails: the number that a failure is told by tells nobody that no printer is there.
inline constexpr std::string_view kEchecImpression =
    "l'impression n'a pas pu se faire : y a-t-il une imprimante ?"_fr;

// Installs the printer in the port.
void installe_imprimante();
