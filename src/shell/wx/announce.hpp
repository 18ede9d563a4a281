// How a message reaches the screen reader. One file per system stands behind this header.
#pragma once

#include <wx/stattext.h>
#include <wx/window.h>

#include <string>
#include <vector>

// Prepares a control that messages may be told through; without it the first one would be lost. Also
// takes back what was told last: a reader says it again whenever the control gets the focus.
void prepare_annonce(wxWindow& controle);
// Prepares the message line, which shows the last message.
void prepare_ligne(wxStaticText& ligne);
// Whether messages are told in the name of the control that has the focus, and so come with what the
// reader says of it. Otherwise they come from the message line, which annonce() changes itself.
bool annonce_par_le_focus();
// Tells the reader each of these texts in UTF-8, once.
void annonce(wxWindow& controle, const std::vector<std::string>& messages);

// What the reader calls a control; `controle` may be any control, a text or a panel.
void nomme(wxWindow& controle, const std::string& utf8);
// The toolkit makes a text the label of the control behind it; this one labels nothing.
void n_etiquette_rien(wxWindow& texte);
// Makes the reader see that window as a dialog.
void declare_dialogue(wxWindow& dialogue);
// Makes the reader see that window as a status bar.
void declare_barre_etat(wxWindow& barre);
