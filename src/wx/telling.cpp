// What the window tells the screen reader of an event: its announcements, once text, cursor and focus are
// final, and nothing that the reader reads by itself. Changes `a_dire_` and the message line.
#include <wx/control.h>

#include <utility>

#include "base/codepage.hpp"
#include "platform/message.hpp"
#include "shell/announcements.hpp"
#include "wx/announce.hpp"
#include "wx/frame.hpp"

void Cadre::montre_ligne_message() {
    if (message_montre_ == ligne_message.LblMessage) return;
    message_montre_ = ligne_message.LblMessage;
    montre_message(*message_, vers_utf8(message_montre_));
    if (annonce_par_le_focus()) nomme(*ligne_message_, kNomLigneMessage + vers_utf8(ligne_message.LblMessage));
}

// The line that the cursor is on, in UTF-8.
std::string Cadre::ligne_du_curseur() const {
    long colonne = 0;
    long ligne = 0;
    txt_->PositionToXY(txt_->GetInsertionPoint(), &colonne, &ligne);
    return txt_->GetLineText(ligne).utf8_string();
}

// What a reader reads of the control that the data give the focus to, in UTF-8.
std::string Cadre::texte_du_focus() const {
    if (fenetre.focus == "txt") return ligne_du_curseur();
    if (fenetre.focus == "Liste") return liste_->GetStringSelection().utf8_string();
    const wxWindow* w = fenetre_de(fenetre.focus);
    return w != nullptr ? wxControl::RemoveMnemonics(w->GetLabel()).utf8_string() : "";
}

// The window is active and the focus where the data want it, and a reader is there too.
bool Cadre::focus_en_place() {
    return !lecteur_ailleurs_ && IsActive() && FindFocus() == fenetre_de(fenetre.focus);
}

// Takes what the event has to tell. A reader that comes to a control reads it: out of a box, out of a
// menu, from another control.
void Cadre::prend_messages(bool focus_present) {
    const bool relit = std::exchange(boite_vue_, false) || !focus_present;
    const std::string titre = std::exchange(titre_neuf_, false) ? vers_utf8(fenetre.titre) : "";
    Lecture lecture{ligne_du_curseur(), relit ? texte_du_focus() : "", titre};
    for (std::string& texte : prend_annonces(lecture)) a_dire_.push_back(std::move(texte));
    attend_ |= relit;
    if (attend_)
        attend_le_focus();
    else
        dit_messages();
}

// Tells what waits, if the control is there that it is told through; otherwise it comes with the focus.
void Cadre::dit_messages() {
    if (annonce_par_le_focus() && !focus_en_place()) return;
    attend_ = false;
    if (a_dire_.empty()) return;
    wxWindow* voix = fenetre_de(fenetre.focus);
    annonce(voix != nullptr ? *voix : *txt_, std::exchange(a_dire_, {}));
}

// The focus is on its way: what waits is told when the reader knows of it, not with the next key.
void Cadre::attend_le_focus() {
    if (!a_dire_.empty())
        apres_le_focus([] {
            if (cadre != nullptr) cadre->dit_messages();
        });
}

void Cadre::note_message(std::string_view texte) { note_annonce(vers_utf8(texte)); }
