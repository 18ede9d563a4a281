// The text control `txt` as the core knows it: the whole text and the selection in bytes of the code
// page. What the core sets is kept here and brought to the control once, when the event ends or a box
// opens; what the user does there is read when the core asks for it.
#pragma once

#include <wx/textctrl.h>

#include <cstddef>
#include <string>

class ZoneTexte {
public:
    explicit ZoneTexte(wxTextCtrl& controle);
    ZoneTexte(const ZoneTexte&) = delete;
    ZoneTexte& operator=(const ZoneTexte&) = delete;

    const std::string& texte();                  // Windows-1252, CR LF
    std::size_t debut();                         // selection, bytes
    std::size_t longueur();
    void pose_texte(std::string&& texte);        // the cursor goes to 0
    void pose_selection(std::size_t debut, std::size_t longueur);

    bool ecrit();                                // the control takes what the core has set; true: its
                                                 // cursor has moved
    void change();                               // the user has changed the control's text
    bool en_ecriture() const { return ecriture_; }   // the change is the program's own

private:
    void lit_selection();
    void ecrit_texte();

    wxTextCtrl& controle_;
    std::string texte_;                          // the text, valid when lu_
    std::string ecrit_en_utf8_;                  // what the control holds, valid when lu_
    bool lu_ = true;                             // texte_ is the current text
    bool texte_a_ecrire_ = false;                // texte_ isn't in the control yet
    bool selection_a_ecrire_ = false;            // debut_ and longueur_ aren't there yet
    bool ecriture_ = false;                      // ecrit() is at work
    std::size_t debut_ = 0, longueur_ = 0;       // selection, bytes
    long vu_de_ = 0, vu_a_ = 0;                  // selection of the control that they stand for
};

// Installs the control in the port.
void installe_texte(ZoneTexte& zone);
