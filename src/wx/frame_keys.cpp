// The keys of the window, told to the core as they go down and come up, and what they type.
#include "wx/frame.hpp"

#include <utility>

#include "shell/events.hpp"
#include "wx/announce.hpp"
#include "wx/keys.hpp"
#include "wx/text_view.hpp"

void Cadre::relie_saisie() {
    txt_->Bind(wxEVT_KEY_UP, &Cadre::touche_relachee, this);
    // A key that comes up elsewhere is no longer held.
    for (const Paire& p : paires_) {
        if (p.fenetre == txt_) continue;
        p.fenetre->Bind(wxEVT_KEY_UP, [](wxKeyEvent& e) {
            oublie_touche(frappe_de(e).touche);
            e.Skip();
        });
    }
    txt_->Bind(wxEVT_CHAR, [](wxKeyEvent& e) {
        if (const int code = caractere_de(e); code != 0) evenement_caractere("txt", code);
        e.Skip();
    });
    filtre_la_saisie(*txt_, {[this] { return zone_->en_ecriture(); },
                             [](const std::string& mots, bool refus) { evenement_saisie(mots, refus); },
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

// A key before anything else takes it.
void Cadre::touche_avant(wxKeyEvent& e) {
    if (menu_ouvert()) {
        e.Skip();
        return;
    }
    const FrappeTouche frappe = frappe_de(e);
    alt_pris_ = frappe.alt && frappe.touche != kToucheAlt;
    const std::string_view nom = nom_de(FindFocus());
    if (f10_a_nous_ && frappe.touche == kToucheF10 && !frappe.maj && !frappe.ctrl && !frappe.alt) {
        ouvre_premier_menu(*GetMenuBar());
        return;
    }
    if (evenement_pression(nom, frappe)) return;
    const bool echap = frappe.touche == kToucheEchap;
    const bool valide = echap || frappe.touche == kToucheEntree;
    // A window that takes Escape for a dialog's would keep it from the text.
    if ((echap && nom == "txt") || (valide && (nom == "Liste" || est_option(nom)))) {
        note_servie(frappe.touche);
        evenement_caractere(nom, frappe.touche);
        return;
    }
    if (frappe.touche == kToucheTab && !frappe.ctrl && !frappe.alt) {
        change_de_controle(frappe.maj);
        return;
    }
    if (nom.starts_with("Cmd") && frappe.touche == kToucheEntree && !frappe.ctrl && !frappe.alt) {
        evenement_clic(nom);
        return;
    }
    alt_pris_ = false;
    if (touche_hors_du_texte(nom, frappe, e)) return;
    e.Skip();
}

// The release of a combination whose press went to a box or a dialog is not the window's. Alt that
// served a combination must not open the menus when it comes up first.
void Cadre::touche_relachee(wxKeyEvent& e) {
    const FrappeTouche frappe = frappe_de(e);
    const bool a_nous = est_tenue(frappe.touche);
    const bool seule = !frappe.alt && !frappe.ctrl && frappe.touche != kToucheAlt;
    if (a_nous || seule) evenement_touche("txt", frappe);
    if (frappe.touche != kToucheAlt || !std::exchange(alt_pris_, false)) e.Skip();
}
