// The keys of the window and what they type: menus first, then the letters of the buttons, then the
// control that has the focus.
#include "shell/wx/frame.hpp"

#include <utility>

#include "base/codepage.hpp"
#include "base/typed_text.hpp"
#include "shell/events.hpp"
#include "shell/wx/keys.hpp"
#include "shell/wx/text_view.hpp"

namespace {

// A key whose command comes on its release: its press must neither type nor move anything. Insert is
// the reader's key and no switch to overwriting.
bool touche_reservee(const FrappeTouche& f) {
    if (f.touche == kToucheInser) return !f.maj && !f.ctrl && !f.alt;
    if (f.touche == kToucheEntree) return f.ctrl;
    const bool de_alt = f.touche == 'C' || f.touche == 'R' || f.touche == kToucheF1 ||
                        f.touche == kToucheGauche || f.touche == kToucheDroite;
    return f.alt && de_alt;
}

// The button whose access key that is, or nullptr. The toolkit would click it a moment later, after
// the key's release.
const Controle* bouton_de(const FrappeTouche& f) {
    if (!f.alt || f.ctrl || f.touche < 'A' || f.touche > 'Z') return nullptr;
    for (const Controle* c : {&fenetre.CmdVoxtab, &fenetre.CmdModifTexte, &fenetre.CmdQuitter}) {
        const std::size_t marque = c->texte.find('&');
        const bool sienne = marque != std::string::npos && marque + 1 < c->texte.size() &&
                            capitale(c->texte[marque + 1]) == f.touche;
        if (sienne && c->visible && c->actif) return c;
    }
    return nullptr;
}

}  // namespace

void Cadre::relie_saisie() {
    txt_->Bind(wxEVT_KEY_UP, &Cadre::touche_relachee, this);
    txt_->Bind(wxEVT_CHAR, [](wxKeyEvent& e) {
        if (const int code = caractere_de(e); code != 0) evenement_caractere("txt", code);
        e.Skip();
    });
    filtre_la_saisie(*txt_, {[this] { return zone_->en_ecriture(); },
                             [this](char32_t caractere) { refuse_caractere(caractere); },
                             [] { evenement_avant_changement(); },
                             [this] { texte_change(); },
                             [] { evenement_enfonce("txt", {'Z', false, true, false}); }});
}

// What changes the text without a key press counts as one: paste, cut, drop, an accent composed of two
// keys.
void Cadre::texte_change() {
    const bool programme = zone_->en_ecriture();
    zone_->change();
    if (!programme) evenement_texte_change();
}

void Cadre::refuse_caractere(char32_t caractere) {
    wxBell();
    messages_.push_back(mots_refus(caractere));
    montre();
}

// A key before anything else takes it: a menu's shortcut runs its item, whatever has the focus.
void Cadre::touche_avant(wxKeyEvent& e) {
    if (menu_ouvert()) {
        e.Skip();
        return;
    }
    const FrappeTouche frappe = frappe_de(e);
    enfoncees_.insert(frappe.touche);
    alt_pris_ = frappe.alt && frappe.touche != kToucheAlt;
    if (const std::string_view item = item_du_raccourci(frappe); !item.empty()) {
        evenement_menu(item);
        return;
    }
    if (const Controle* bouton = bouton_de(frappe)) {
        enfoncees_.erase(kToucheAlt);   // it has served, and its release is no key of its own
        evenement_clic(bouton->nom);
        return;
    }
    const std::string_view nom = nom_de(FindFocus());
    if (nom == "txt" && evenement_enfonce(nom, frappe)) return;
    const bool echap = frappe.touche == kToucheEchap;
    const bool valide = echap || frappe.touche == kToucheEntree;
    // A window that takes Escape for a dialog's would keep it from the text.
    if ((echap && nom == "txt") || (valide && (nom == "Liste" || est_option(nom)))) {
        evenement_caractere(nom, frappe.touche);
        return;
    }
    if (nom == "txt" && touche_reservee(frappe)) return;
    alt_pris_ = false;
    e.Skip();
}

// The release of a combination whose press went to a box or a dialog is not the window's. Alt that
// served a combination must not open the menus when it comes up first.
void Cadre::touche_relachee(wxKeyEvent& e) {
    const FrappeTouche frappe = frappe_de(e);
    const bool a_nous = enfoncees_.erase(frappe.touche) != 0;
    const bool seule = !frappe.alt && !frappe.ctrl && frappe.touche != kToucheAlt;
    if (a_nous || seule) evenement_touche("txt", frappe);
    if (frappe.touche != kToucheAlt || !std::exchange(alt_pris_, false)) e.Skip();
}
