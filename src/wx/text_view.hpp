// What the toolkit doesn't offer of the system's text control. One file per system implements this
// header. Positions count characters, a line end as one.
#pragma once

#include <wx/textctrl.h>

#include <functional>
#include <string>
#include <string_view>

// The whole text in UTF-8.
std::string texte_de_la_vue(const wxTextCtrl& controle);
// Replaces the characters from `de` to `a` by a text in UTF-8, as one change.
void remplace_dans_la_vue(wxTextCtrl& controle, long de, long a, std::string_view utf8);

// The selection, and the view scrolled so that the cursor at `position` can be seen.
void lit_selection_de_la_vue(const wxTextCtrl& controle, long& de, long& a);
void pose_selection_de_la_vue(wxTextCtrl& controle, long de, long a);
void montre_curseur_de_la_vue(wxTextCtrl& controle, long position);

// The font of the whole text; the colours of the whole text, and of the view around it.
void pose_police_de_la_vue(wxTextCtrl& controle, const wxFont& police);
void pose_couleurs_de_la_vue(wxTextCtrl& controle, const wxColour& caracteres, const wxColour& fond);

// While true, a screen reader isn't told of what changes in the text, nor of a cursor that moves.
void tait_les_changements(const wxTextCtrl& controle, bool tait);

// What is typed, pasted or dropped goes through saisit(). `dit` is given what the user must hear of it,
// in UTF-8, when the text is final, and whether it was refused. `programme` answers true while the program
// itself writes.
struct FiltreSaisie {
    std::function<bool()> programme;
    std::function<void(const std::string& mots, bool refus)> dit;
    std::function<void()> avant;     // the user is about to change the text
    std::function<void()> change;    // the text has changed
    std::function<void()> annule;    // the system's own means to take back are used
};
void filtre_la_saisie(wxTextCtrl& controle, FiltreSaisie filtre);
