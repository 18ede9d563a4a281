// How a message reaches the screen reader. One file per system stands behind this header.
#pragma once

#include <wx/window.h>

#include <string>

// Prepares a control that messages may be told through; without it the first one would be lost. Also
// takes back what was told last: a reader says it again whenever the control gets the focus.
void prepare_annonce(wxWindow& controle);
// Tells the reader a text in UTF-8, once, in the name of the control that has the focus.
void annonce(wxWindow& controle, const std::string& utf8);

// What the reader calls a control; `controle` may be any control, a text or a panel.
void nomme(wxWindow& controle, const std::string& utf8);
// The toolkit makes a text the label of the control behind it; this one labels nothing.
void n_etiquette_rien(wxWindow& texte);
// Makes the reader see that window as a dialog.
void declare_dialogue(wxWindow& dialogue);
// Makes the reader see that window as a status bar.
void declare_barre_etat(wxWindow& barre);
