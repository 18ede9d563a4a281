// The controls of the window, their events and the focus; the keys are in frame_keys.
#include "wx/frame.hpp"

#include "platform/platform.hpp"
#include "shell/events.hpp"
#include "wx/announce.hpp"
#include "wx/appearance.hpp"
#include "wx/ids.hpp"
#include "wx/look.hpp"
#include "wx/player.hpp"
#include "wx/sounds.hpp"

Cadre* cadre = nullptr;

namespace {

constexpr int kLargeurMini = 480;      // pixels of the window, so that menus and buttons keep their place
constexpr int kHauteurMini = 320;

}  // namespace

Cadre::Cadre() : wxFrame(nullptr, wxID_ANY, vers_wx(fenetre.titre)) {
    habille(*this);
    SetMinSize(wxSize(kLargeurMini, kHauteurMini));
    SetMenuBar(menus_.barre());
    f10_a_nous_ = prend_f10();
    cree_controles();
    zone_ = std::make_unique<ZoneTexte>(*txt_);
    relie_evenements();
    relie_txt();
    cadre = this;
}

// The controls in their tab order: the text, the angle view, the buttons, the list.
void Cadre::cree_controles() {
    const long style = wxTE_MULTILINE | wxTE_DONTWRAP | wxTE_NOHIDESEL;
    txt_ = new wxTextCtrl(this, ids::kTxt, "", wxDefaultPosition, wxDefaultSize, style);
    etat_ = new BarreEtat(this);
    cadre_angle_ = new wxStaticBox(this, ids::kFrameAngle, "");
    const auto option = [&](int id, long groupe) {
        return new wxRadioButton(cadre_angle_, id, "", wxDefaultPosition, wxDefaultSize, groupe);
    };
    const auto bouton = [](wxWindow* parent, int id) { return new wxButton(parent, id, " "); };
    Fenetre& f = fenetre;
    const auto ajoute = [&](Controle& c, wxWindow* w) {
        w->SetName(wxString::FromUTF8(c.nom.data(), c.nom.size()));
        paires_.push_back({&c, w, "", {}, true});
        if (&c != &f.FrameAngle && &c != &f.LblMessage) prepare_annonce(*w);
    };
    ajoute(f.txt, txt_);
    ajoute(f.FrameAngle, cadre_angle_);
    ajoute(f.OptionDegre, option(ids::kOptionDegre, wxRB_GROUP));
    ajoute(f.OptionRadian, option(ids::kOptionRadian, 0));
    ajoute(f.OptionGrade, option(ids::kOptionGrade, 0));
    ajoute(f.CmdAngle, bouton(cadre_angle_, ids::kCmdAngle));
    ajoute(f.CmdVoxtab, bouton(this, ids::kCmdVoxtab));
    ajoute(f.CmdModifTexte, bouton(this, ids::kCmdModifTexte));
    ajoute(f.CmdQuitter, bouton(this, ids::kCmdQuitter));
    liste_ = new wxListBox(this, ids::kListe);
    ajoute(f.Liste, liste_);
    // Alone in its panel the line labels nothing, neither a control nor a box to come.
    ligne_message_ = new wxPanel(this);
    ligne_message_->SetCanFocus(false);
    // A message longer than the window ends in an ellipsis there; a reader has it whole.
    message_ = new wxStaticText(ligne_message_, ids::kLblMessage, "", wxDefaultPosition,
                                wxDefaultSize, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    ajoute(f.LblMessage, message_);
    prepare_ligne(*message_);
    nomme(*ligne_message_, kNomLigneMessage);
    nomme(*txt_, "Feuille");
    nomme(*liste_, "Couleurs");
}

void Cadre::relie_evenements() {
    Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent&) { evenement_fermeture(); });
    Bind(wxEVT_MENU, &Cadre::choix_menu, this);
    Bind(wxEVT_CHAR_HOOK, &Cadre::touche_avant, this);
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& e) {
        if (wxWindow* w = fenetre_de(fenetre.focus)) prepare_annonce(*w);
        e.Skip();
    });
    const auto clic = [this](wxCommandEvent& e) {
        evenement_clic(nom_de(static_cast<wxWindow*>(e.GetEventObject())));
    };
    Bind(wxEVT_BUTTON, clic);
    Bind(wxEVT_RADIOBUTTON, clic);
    Bind(wxEVT_LISTBOX, [](wxCommandEvent& e) { fenetre.index_liste = e.GetSelection(); });
    // Enter and a double click choose the line.
    Bind(wxEVT_LISTBOX_DCLICK,
         [](wxCommandEvent&) { evenement_caractere("Liste", kToucheEntree); });
    Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& e) {
        const std::string_view nom = nom_de(e.GetWindow());
        if (!au_travail_ && !nom.empty()) fenetre.focus = nom;
        // An option that an arrow key leads to is the chosen one.
        if (!au_travail_ && est_option(nom)) evenement_clic(nom);
        attend_le_focus();
        e.Skip();
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& e) {
        montre_couleurs_message();
        e.Skip();
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& e) {
        e.Skip();
        place_controles();
    });
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& e) {
        if (!e.GetActive()) oublie_touches();
        attend_le_focus();
        e.Skip();
    });
}

void Cadre::relie_txt() {
    // What was told is over when the user goes elsewhere: coming back must not say it again.
    for (const Paire& p : paires_) {
        if (p.donnees == &fenetre.LblMessage) continue;
        p.fenetre->Bind(wxEVT_KILL_FOCUS, [w = p.fenetre](wxFocusEvent& e) {
            prepare_annonce(*w);
            e.Skip();
        });
    }
    relie_saisie();
}

void Cadre::choix_menu(wxCommandEvent& e) {
    int index = 0;
    const std::string_view nom = item_du_menu(e.GetId(), index);
    if (nom.empty()) {
        e.Skip();
        return;
    }
    // The reader is still in the menu; it comes back to the control that had the focus.
    lecteur_ailleurs_ = true;
    evenement_menu(nom, index);
    lecteur_ailleurs_ = false;
}

std::string_view Cadre::nom_de(const wxWindow* w) const {
    for (const Paire& p : paires_)
        if (p.fenetre == w) return p.donnees->nom;
    return "";
}

wxWindow* Cadre::fenetre_de(std::string_view nom) const {
    for (const Paire& p : paires_)
        if (p.donnees->nom == nom) return p.fenetre;
    return nullptr;
}

void Cadre::installe_port_texte() { installe_texte(*zone_); }

void Cadre::termine() {
    cadre = nullptr;
    Destroy();
}

void installe_fenetre(Cadre& c) {
    cadre = &c;
    port.message.etiquette = port.message.annonce = [](std::string_view texte) {
        if (cadre != nullptr) cadre->note_message(texte);
    };
    installe_sons();
    installe_lecteur_de_son();
    port.fenetre = {[] {
                        if (cadre != nullptr) cadre->montre();
                    },
                    [] {
                        if (cadre != nullptr) cadre->termine();
                    },
                    [](int& largeur, int& hauteur) {
                        const wxSize ecran = wxGetDisplaySize();
                        largeur = ecran.x * kTwipsParPixel;
                        hauteur = ecran.y * kTwipsParPixel;
                    }};
}
