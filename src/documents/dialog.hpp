// What the file, font and printer dialogs share. One instance, `dlg`; start-up prepares it, each
// command that shows a dialog sets its part first.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.hpp"

// Captions of the dialog for a sheet.
inline constexpr std::string_view kTitreOuvrir = "Ouvrir"_fr;
inline constexpr std::string_view kTitreEnregistrer = "Enregistrer sous"_fr;

struct Dlg {
    std::string extension;                // default extension, "VXT"
    std::string filtre;                   // kinds of files offered, pairs of caption and pattern
    std::string nom_fichier;              // path proposed, then the path chosen
    std::string police_nom;               // font proposed, then chosen
    double police_taille = 0;             // its size, points
};
extern Dlg dlg;
