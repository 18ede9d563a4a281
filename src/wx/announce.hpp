// How a message reaches the screen reader. One file per system implements this header.
#pragma once

#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/window.h>

#include <string>
#include <vector>

// At the start, before anything is shown: waits until a reader that runs is told of what is shown. Not long,
// and not at all where no reader runs.
void attend_lecteur();
// Prepares a control that messages may be told through; without it the first one would be lost. Also
// takes back what was told last, where that stays with the control.
void prepare_annonce(wxWindow& controle);
// Prepares the message line, which shows the last message.
void prepare_ligne(wxStaticText& ligne);
// The message line shows that text in UTF-8, as it stands; nothing is told.
void montre_message(wxStaticText& ligne, const std::string& utf8);
// Whether messages are told in the name of the control that has the focus, and so must wait for it.
// Otherwise they come from the message line, which annonce() changes itself.
bool annonce_par_le_focus();
// Whether a reader reads the title by itself when it changes.
bool titre_lu_par_le_lecteur();
// Tells the reader each of these texts in UTF-8, once.
void annonce(wxWindow& controle, const std::vector<std::string>& messages);
// Runs `suite` when the reader has been told of every change of the focus that is under way.
void apres_le_focus(void (*suite)());
// The list's line of that rank is the one where the arrows go on, and the reader is told of it.
void suit_la_ligne(wxListBox& liste, int rang);
// Whether the arrows reach an item of a menu that can't be chosen, and a reader reads it.
bool menu_lit_ce_qui_est_grise();
// F10 is the program's from now on: it opens the first menu. Where false, the system does so itself.
bool prend_f10();
void ouvre_premier_menu(wxMenuBar& barre);
// Shows a box of the toolkit whose words are these; the result is the answer.
int montre_boite_lue(wxMessageDialog& boite, const wxString& mots);

// What the reader calls a control; `controle` may be any control, a text or a panel.
void nomme(wxWindow& controle, const std::string& utf8);
// The toolkit makes a text the label of the control after it; this one labels nothing.
void n_etiquette_rien(wxWindow& texte);
// Makes the reader see that window as a dialog.
void declare_dialogue(wxWindow& dialogue);
// Makes the reader see that window as a status bar.
void declare_barre_etat(wxWindow& barre);
