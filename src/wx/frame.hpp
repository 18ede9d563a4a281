// The window: the controls of the core's data, shown as the data say, and what the user does there,
// told to the core. One instance, made when the program starts.
#pragma once

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/events.hpp"
#include "shell/window.hpp"
#include "wx/menus.hpp"
#include "wx/status_bar.hpp"
#include "wx/text_control.hpp"

class Cadre : public wxFrame {
public:
    Cadre();

    void installe_port_texte();                      // the text in the port
    void montre();                                   // the window becomes what the data say, and tells it
    void montre_avant_boite();                       // the same before a box; what is to be told waits
    void note_message(std::string_view texte);       // a message to tell when the window is up to date
    void termine();                                  // the program is over

private:
    // A control with the data that it shows, and what it showed last.
    struct Paire {
        Controle* donnees;
        wxWindow* fenetre;
        std::string texte;
        Police police{};
        bool neuf = true;
    };

    void cree_controles();                           // frame.cpp
    void relie_evenements();
    void relie_txt();
    void choix_menu(wxCommandEvent& e);
    std::string_view nom_de(const wxWindow* w) const;
    wxWindow* fenetre_de(std::string_view nom) const;

    void relie_saisie();                             // frame_keys.cpp
    void texte_change();
    void touche_avant(wxKeyEvent& e);
    void touche_relachee(wxKeyEvent& e);

    bool touche_hors_du_texte(std::string_view nom, const FrappeTouche& frappe,
                              wxKeyEvent& e);        // focus.cpp

    void montre_controle(Paire& p);                  // mirror.cpp
    void montre_legende(Paire& p);
    void montre_police(Paire& p);
    void montre_couleurs();
    void montre_couleurs_message();
    void montre_liste();
    void montre_options();
    void montre_titre();
    void montre_focus();
    void cache_controles();
    void ecrit_texte(bool focus_present);
    bool met_a_jour();

    void montre_ligne_message();                     // telling.cpp
    std::string ligne_du_curseur() const;
    std::string texte_du_focus() const;
    bool focus_en_place();
    void prend_messages(bool focus_present);
    void dit_messages();
    void attend_le_focus();

    void change_de_controle(bool arriere);           // frame_tab.cpp

    void place_fenetre();                            // layout.cpp
    void place_controles();
    int place_boutons(int largeur);
    void place_cadre_angle(int haut, const wxSize& place);

    std::vector<Paire> paires_;
    wxTextCtrl* txt_ = nullptr;
    wxListBox* liste_ = nullptr;
    wxStaticBox* cadre_angle_ = nullptr;
    wxPanel* ligne_message_ = nullptr;
    wxStaticText* message_ = nullptr;
    BarreEtat* etat_ = nullptr;
    BarreMenus menus_;
    std::unique_ptr<ZoneTexte> zone_;
    std::string message_montre_;                     // in the message line, as shown
    std::vector<std::string> a_dire_;                // texts in UTF-8, to be told
    bool attend_ = false;                            // they wait for the focus
    std::vector<std::string> lignes_vues_;           // of the list, as shown
    bool alt_pris_ = false;                          // Alt is down and has served a combination
    bool f10_a_nous_ = false;                        // F10 opens the first menu, which the program does
    wxRect place_vue_;                               // place of the window as the data had it, twips
    int couleur_vue_ = -2, fond_vu_ = -2;            // colours of the text as shown
    bool sablier_vu_ = false;
    bool a_placer_ = true;                           // the controls must be placed again
    bool lecteur_ailleurs_ = false;                  // a screen reader is in a menu, not in the window
    bool boite_vue_ = false;                         // a box has been open during this event
    bool titre_neuf_ = false;                        // the title has changed during this event
    bool au_travail_ = false;                        // the window is being brought up to date
};

// The window of the program, or nullptr.
extern Cadre* cadre;

// What the panel of the message line is called, in front of the message.
inline constexpr const char* kNomLigneMessage = "Message : ";

// True for an option button of the angle view.
inline bool est_option(std::string_view nom) { return nom.starts_with("Option"); }

// Installs the window, the message line and the beep in the port.
void installe_fenetre(Cadre& c);
