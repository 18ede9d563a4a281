// Keys outside the text: Escape leads back to the sheet from everywhere, and what is typed on a button goes
// to the text. Changes the focus through the core's data.
#include "shell/events.hpp"
#include "shell/keys.hpp"
#include "wx/frame.hpp"
#include "wx/keys.hpp"

namespace {

constexpr int kAccent = '^';   // what a dead key is for a control that isn't the text

}  // namespace

// A key where the control that has the focus doesn't take it; true when it is dealt with. The blank
// presses a button and chooses an option. A letter in the list is looked for there in the same way
// everywhere; the accent of a dead key goes to the text with the letter after it. A key that would write is
// answered in a text to be read.
bool Cadre::touche_hors_du_texte(std::string_view nom, const FrappeTouche& frappe, wxKeyEvent& e) {
    const bool morte = est_touche_morte(e) && nom != "txt" && nom != "Liste";
    const int code = frappe.touche == kToucheEchap ? kToucheEchap : morte ? kAccent : caractere_de(e);
    if (nom == "txt") {
        if (fenetre.txt_lecture_seule && ecrirait(frappe, caractere_de(e))) evenement_lecture_seule();
        return false;
    }
    if (code != kToucheEchap && code <= ' ') return false;
    note_servie(frappe.touche);
    evenement_caractere(nom, code);
    if (code != kToucheEchap && fenetre.focus == "txt") rejoue_frappe(e, *txt_);
    return true;
}
