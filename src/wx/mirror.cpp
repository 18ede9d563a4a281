// The window follows the core's data: what must be seen comes first, then the focus, then what must
// go, so that the focus never passes over a control that isn't meant; the messages come last, when
// text and cursor are final.
#include "wx/frame.hpp"

#include <cstddef>
#include <utility>

#include "wx/announce.hpp"
#include "wx/appearance.hpp"
#include "wx/text_view.hpp"

namespace {

bool est_texte(const Controle* c) {
    return c == &fenetre.txt || c == &fenetre.Liste || c == &fenetre.LblMessage;
}

}  // namespace

void Cadre::montre_legende(Paire& p) {
    if (est_texte(p.donnees) || (!p.neuf && p.texte == p.donnees->texte)) return;
    p.texte = p.donnees->texte;
    p.fenetre->SetLabel(vers_wx(p.texte));
    a_placer_ = true;
}

// Only the texts have a font of their own; the other controls keep the system's.
void Cadre::montre_police(Paire& p) {
    const Police police = police_montree(*p.donnees);
    if (!est_texte(p.donnees) || (!p.neuf && p.police.nom == police.nom &&
                                  p.police.taille == police.taille && p.police.gras == police.gras))
        return;
    p.police = police;
    if (p.fenetre == txt_)
        pose_police_de_la_vue(*txt_, police_wx(police));
    else
        p.fenetre->SetFont(police_wx(police));
    a_placer_ = true;
}

// Each control of a frame is told by itself whether it can be used: a reader isn't told of the state that it
// has from its frame.
void Cadre::montre_controle(Paire& p) {
    montre_legende(p);
    montre_police(p);
    if (utilisable(*p.donnees) && !p.fenetre->IsThisEnabled()) p.fenetre->Enable();
    if (p.donnees->visible && !p.fenetre->IsShown()) {
        p.fenetre->Show();
        a_placer_ = true;
    }
    p.neuf = false;
}

void Cadre::cache_controles() {
    for (Paire& p : paires_) {
        if (!p.donnees->visible && p.fenetre->IsShown()) {
            p.fenetre->Hide();
            a_placer_ = true;
        }
        if (!utilisable(*p.donnees) && p.fenetre->IsThisEnabled()) p.fenetre->Disable();
    }
}

void Cadre::montre_couleurs() {
    if (txt_->IsEditable() == fenetre.txt_lecture_seule)
        txt_->SetEditable(!fenetre.txt_lecture_seule);
    if (sablier_vu_ != fenetre.sablier) SetCursor(fenetre.sablier ? *wxHOURGLASS_CURSOR : wxNullCursor);
    sablier_vu_ = fenetre.sablier;
    if (couleur_vue_ == fenetre.txt_couleur && fond_vu_ == fenetre.txt_fond) return;
    couleur_vue_ = fenetre.txt_couleur;
    fond_vu_ = fenetre.txt_fond;
    pose_couleurs_de_la_vue(*txt_, couleur_wx(couleur_vue_), couleur_wx(fond_vu_));
}

// The message line can be read on whatever the theme has behind it.
void Cadre::montre_couleurs_message() {
    const Lettres lettres = lettres_lisibles(couleur_wx(fenetre.LblMessage_couleur));
    if (message_->GetForegroundColour() == lettres.couleur &&
        ligne_message_->GetBackgroundColour() == lettres.fond)
        return;
    ligne_message_->SetBackgroundColour(lettres.fond);
    message_->SetForegroundColour(lettres.couleur);
    ligne_message_->Refresh();
}

void Cadre::montre_liste() {
    if (lignes_vues_ != fenetre.lignes_liste) {
        lignes_vues_ = fenetre.lignes_liste;
        wxArrayString lignes;
        for (const std::string& ligne : lignes_vues_) lignes.Add(vers_wx(ligne));
        liste_->Set(lignes);
    }
    const int rang = fenetre.index_liste;
    const bool dedans = rang >= 0 && static_cast<std::size_t>(rang) < lignes_vues_.size();
    if (!dedans || liste_->GetSelection() == rang) return;
    liste_->SetSelection(rang);
    suit_la_ligne(*liste_, rang);
}

void Cadre::montre_options() {
    const char* const nom = fenetre.option_angle == 1   ? "OptionDegre"
                            : fenetre.option_angle == 2 ? "OptionRadian"
                                                        : "OptionGrade";
    auto* option = static_cast<wxRadioButton*>(fenetre_de(nom));
    if (!option->GetValue()) option->SetValue(true);
}

void Cadre::montre_focus() {
    wxWindow* voulu = fenetre_de(fenetre.focus);
    if (voulu != nullptr && voulu != FindFocus() && voulu->IsShown()) voulu->SetFocus();
}

void Cadre::montre_titre() {
    const wxString titre = vers_wx(fenetre.titre);
    if (titre == GetTitle()) return;
    SetTitle(titre);
    titre_neuf_ = titre_lu_par_le_lecteur();
}

// The text and the cursor. A reader that is about to come to the text would follow the cursor there
// first, and then read nothing: it isn't told of it.
void Cadre::ecrit_texte(bool focus_present) {
    const bool tait = boite_vue_ || !focus_present;
    if (tait) tait_les_changements(*txt_, true);
    zone_->ecrit();
    if (tait) tait_les_changements(*txt_, false);
}

// All but the messages. The result is true when the focus was already where it is wanted.
bool Cadre::met_a_jour() {
    const bool focus_present = focus_en_place();
    montre_titre();
    menus_.montre();
    etat_->montre(fenetre.panneaux);
    for (Paire& p : paires_) montre_controle(p);
    montre_couleurs();
    montre_couleurs_message();
    montre_liste();
    montre_options();
    montre_ligne_message();
    place_fenetre();
    if (!IsShown()) Show();
    montre_focus();
    ecrit_texte(focus_present);
    cache_controles();
    if (std::exchange(a_placer_, false)) place_controles();
    return focus_present;
}

void Cadre::montre() {
    if (std::exchange(au_travail_, true)) return;
    prend_messages(met_a_jour());
    au_travail_ = false;
}

void Cadre::montre_avant_boite() {
    if (std::exchange(au_travail_, true)) return;
    met_a_jour();
    boite_vue_ = true;
    au_travail_ = false;
}
