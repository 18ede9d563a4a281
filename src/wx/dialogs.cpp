// Boxes and entry box. The window is brought up to date before each, so that what was said and
// written until then is there when the user comes back; afterwards the focus returns to it.
#include "wx/dialogs.hpp"

#include <wx/dialog.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "wx/announce.hpp"
#include "wx/appearance.hpp"
#include "wx/frame.hpp"
#include "wx/modal.hpp"

namespace {

constexpr const char* kTitre = "VOXTAB";
constexpr int kMarge = 10;             // pixels around the parts of the entry box
constexpr int kLargeurSaisie = 400;    // pixels, at least

int montre_boite(std::string_view texte, long style) {
    ouvre_modal();
    wxMessageDialog boite(cadre, vers_wx(texte), kTitre, style | wxICON_NONE);
    if ((style & wxCANCEL) != 0)
        boite.SetYesNoCancelLabels("&Oui", "&Non", "&Annuler");
    else if ((style & wxYES_NO) != 0)
        boite.SetYesNoLabels("&Oui", "&Non");
    else
        boite.SetOKLabel("OK");
    return montre_boite_lue(boite, vers_wx(texte));
}

Reponse oui_non_annuler(std::string_view texte) {
    switch (montre_boite(texte, wxYES_NO | wxCANCEL)) {
        case wxID_YES: return Reponse::oui;
        case wxID_NO: return Reponse::non;
        default: return Reponse::annuler;
    }
}

// A box with one line of text, all of it selected.
class BoiteSaisie : public wxDialog {
public:
    BoiteSaisie(const wxString& invite, const wxString& propose)
        : wxDialog(cadre, wxID_ANY, kTitre, wxDefaultPosition, wxDefaultSize,
                   wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
        auto* colonne = new wxBoxSizer(wxVERTICAL);
        colonne->Add(new wxStaticText(this, wxID_ANY, invite), 0, wxALL, kMarge);
        ligne_ = new wxTextCtrl(this, wxID_ANY, propose, wxDefaultPosition, wxSize(kLargeurSaisie, -1));
        // With large text the toolkit makes the line lower than its letters.
        ligne_->SetMinSize(wxSize(kLargeurSaisie, std::max(ligne_->GetBestSize().y,
                                                           ligne_->GetCharHeight() + 2 * kMarge)));
        colonne->Add(ligne_, 0, wxEXPAND | wxLEFT | wxRIGHT, kMarge);
        colonne->Add(boutons(), 0, wxALIGN_RIGHT | wxALL, kMarge);
        declare_dialogue(*this);
        nomme(*ligne_, invite.utf8_string());
        SetSizerAndFit(colonne);
        ligne_->SelectAll();
        ligne_->SetFocus();
    }
    wxString reponse() const { return ligne_->GetValue(); }

private:
    wxSizer* boutons() {
        auto* rangee = new wxStdDialogButtonSizer;
        auto* ok = new wxButton(this, wxID_OK, "OK");
        rangee->AddButton(ok);
        rangee->AddButton(new wxButton(this, wxID_CANCEL, "&Annuler"));
        rangee->Realize();
        ok->SetDefault();
        return rangee;
    }

    wxTextCtrl* ligne_;
};

// What the code page lacks in the answer is told, and the box comes back with it.
bool saisie(std::string_view invite, std::string_view propose, std::string& reponse) {
    wxString texte = vers_wx(propose);
    for (;;) {
        ouvre_modal();
        BoiteSaisie boite(vers_wx(invite), texte);
        const bool ok = boite.ShowModal() == wxID_OK;
        if (!ok) return false;
        texte = boite.reponse();
        if (en_page(texte, reponse)) return true;
    }
}

}  // namespace

bool demande_remplacement(std::string_view texte) {
    return montre_boite(texte, wxYES_NO | wxNO_DEFAULT) == wxID_YES;
}

void installe_boites() {
    port.boites.boite = [](std::string_view texte) {
        note_boite_montree(texte);
        montre_boite(texte, wxOK);
    };
    port.boites.boite_comptee = [](std::string_view) {};
    port.boites.boite_du_compte = port.boites.boite;
    port.boites.oui_non = [](std::string_view texte) {
        return montre_boite(texte, wxYES_NO) == wxID_YES;
    };
    port.boites.oui_non_annuler = oui_non_annuler;
    port.boites.saisie = saisie;
}
