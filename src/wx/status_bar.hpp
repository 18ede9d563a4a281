// The status bar: four texts of their own, because the toolkit's bar can't be read by a screen
// reader. The last two are the system's time and date, kept up here.
#pragma once

#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <array>
#include <string>

class BarreEtat : public wxPanel {
public:
    explicit BarreEtat(wxWindow* parent);

    void montre(const std::array<std::string, 4>& panneaux);   // panels 1 and 2, Windows-1252
    void place(const wxRect& place);                           // the bar and its panels in it
    int hauteur() const;

private:
    void montre_heure();
    void pose(std::size_t rang, const wxString& texte);

    std::array<wxStaticText*, 4> panneaux_{};
    std::array<wxString, 4> textes_;   // what the panels show
    wxTimer minuterie_;
};
