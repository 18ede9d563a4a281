// The views of the window and the commands that change them: angle, read-only texts, key help, the
// return to the sheet. Change `fenetre`, `aide`, `documents` and the text of the port.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/codepage.hpp"

// What a text says that can be read and not written.
inline constexpr std::string_view kLectureSeule = "lecture seule";
// Told when a command has left another view, and what it said may not tell so.
inline constexpr std::string_view kRetourFeuille = "retour à la feuille"_fr;

void mnuAngleItem();             // opens the angle view
void mnuCouleurEcran();          // opens the list of colours
void CmdAngle();                 // leaves it: the unit is taken and the sheet calculated
void ferme_choix();              // the colours and the angle view give way, without a choice: no two views at once
bool texte_modifiable();         // `txt` is shown and can be written
bool quitte_vues();              // the sheet again from another view; false: it was there
void CmdVoxtab();                // validates a colour, or brings the sheet back
void CmdModifTexte();            // replacement on the text
void mnuAideToucheItem();        // key help on and off
void montre_lecture(std::string texte);   // a text in place of the sheet, to be read
void AfficheFonction();          // the list of functions, from "fonction.txt"
void mnuAideTxtItem();           // the guide, from "aide.txt"
std::string texte_du_guide();    // the guide's file, without its last line end; a failure when it is missing
void montre_guide(std::string guide, std::size_t position);   // the guide, from the line there on
void mnuApropos();               // the about text
void RangeFonction();            // the function name under the cursor of the list; no key calls it
