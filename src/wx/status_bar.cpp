// The panels of the status bar. Each has an accessible name that tells what it shows.
#include "wx/status_bar.hpp"

#include <wx/datetime.h>

#include <algorithm>

#include "wx/announce.hpp"
#include "wx/appearance.hpp"
#include "wx/ids.hpp"

namespace {

constexpr std::array kLargeurs = {2000, 2000, 1040, 1040};   // twips
constexpr int kMarge = 4;                                    // pixels around the texts
constexpr int kPeriode = 1000;                               // milliseconds between two looks at the clock
constexpr std::array kNoms = {"mode : ", "", "heure : ", "date : "};

}  // namespace

BarreEtat::BarreEtat(wxWindow* parent) : wxPanel(parent, ids::kStatusBar) {
    declare_barre_etat(*this);
    nomme(*this, "Barre d'état");
    for (wxStaticText*& panneau : panneaux_)
        panneau = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE);
    for (wxStaticText* panneau : panneaux_) n_etiquette_rien(*panneau);
    minuterie_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { montre_heure(); });
    minuterie_.Start(kPeriode);
    montre_heure();
}

// A panel is touched only when its text changes.
void BarreEtat::pose(std::size_t rang, const wxString& texte) {
    if (texte == textes_[rang]) return;
    textes_[rang] = texte;
    panneaux_[rang]->SetLabelText(texte);
    nomme(*panneaux_[rang], kNoms[rang] + texte.utf8_string());
}

void BarreEtat::montre_heure() {
    const wxDateTime maintenant = wxDateTime::Now();
    pose(2, maintenant.Format("%H:%M"));
    pose(3, maintenant.Format("%d/%m/%Y"));
}

void BarreEtat::montre(const std::array<std::string, 4>& panneaux) {
    pose(0, vers_wx(panneaux[0]));
    pose(1, vers_wx(panneaux[1]));
}

int BarreEtat::hauteur() const { return panneaux_[0]->GetCharHeight() + 2 * kMarge; }

// The panels stand side by side; one whose text needs more room takes it.
void BarreEtat::place(const wxRect& place) {
    SetSize(place);
    int x = kMarge;
    for (std::size_t i = 0; i < panneaux_.size(); ++i) {
        const int texte = panneaux_[i]->GetTextExtent(textes_[i]).x;
        const int largeur = std::max(pixels(kLargeurs[i]), texte + 2 * kMarge);
        panneaux_[i]->SetSize(x, kMarge, largeur, panneaux_[i]->GetCharHeight());
        x += largeur + kMarge;
    }
}
