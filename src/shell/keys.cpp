// The keys of the text: which are down, and what each does as it comes up.
// Changes `clavier` and, through the commands, the sheet.
#include "shell/keys.hpp"

#include <algorithm>
#include <array>

#include "documents/documents.hpp"
#include "platform/message.hpp"
#include "shell/commands.hpp"
#include "shell/help_mode.hpp"

Clavier clavier;

namespace {

// The keys that the text handles on their release and that run no command, whatever is down with them. A
// key that isn't here and runs none is "any other".
struct ToucheSansCommande {
    int touche;
    void (*action)();
};
constexpr std::array kSansCommande = {
    ToucheSansCommande{kToucheSuppr, marque_modifie},
    ToucheSansCommande{kToucheFin, [] {}},
    ToucheSansCommande{kToucheMaj, [] {}},
    ToucheSansCommande{kToucheCtrl, [] {}},
};

auto place_de(int touche) {
    return std::find_if(clavier.tenues.begin(), clavier.tenues.end(),
                        [&](const ToucheTenue& t) { return t.frappe.touche == touche; });
}

// A key is down that went down with Alt and whose command is still to come.
bool alt_en_attente() {
    return std::any_of(clavier.tenues.begin(), clavier.tenues.end(), [](const ToucheTenue& t) {
        return t.dans_texte && !t.servie && t.frappe.alt && touche_reservee(t.frappe);
    });
}

// The modifiers of both moments. AltGr that comes after a key that has typed is on its way to the next
// sign.
FrappeTouche reunit(const FrappeTouche& pression, const FrappeTouche& relache) {
    const bool a_tape = !pression.ctrl && !pression.alt &&
                        (pression.touche < kToucheF1 && pression.touche != kToucheEchap);
    const bool altgr_suit = a_tape && relache.ctrl && relache.alt;
    return {relache.touche, pression.maj || relache.maj,
            pression.ctrl || (relache.ctrl && !altgr_suit),
            pression.alt || (relache.alt && !altgr_suit)};
}

// A key that runs nothing. In key-help mode one that has reached no command says so; the note that a
// command has spoken holds for the next key that the table doesn't know.
void touche_quelconque() {
    if (!aide.aide_touche) return;
    if (!aide.aide_touche_traitee) dit("aucune fonction");
    aide.aide_touche_traitee = false;
}

// What that key does as it comes up; a key whose press has run a command does nothing more.
void sert(const FrappeTouche& frappe, bool servie) {
    if (servie) return touche_quelconque();
    if (const LigneCommande* const commande = commande_relachee(frappe)) return lance(*commande);
    const auto* const ligne =
        std::find_if(kSansCommande.begin(), kSansCommande.end(),
                     [&](const ToucheSansCommande& t) { return t.touche == frappe.touche; });
    if (ligne == kSansCommande.end()) return touche_quelconque();
    ligne->action();
}

}  // namespace

bool note_pression(bool dans_texte, const FrappeTouche& frappe) {
    const auto place = place_de(frappe.touche);
    if (place == clavier.tenues.end()) {
        clavier.tenues.push_back({frappe, dans_texte, false});
        return false;
    }
    if (place->dans_texte && touche_reservee(place->frappe)) return true;
    place->frappe = frappe;
    place->dans_texte = dans_texte;
    return false;
}

void note_servie(int touche) {
    if (const auto place = place_de(touche); place != clavier.tenues.end()) place->servie = true;
}

bool est_tenue(int touche) { return place_de(touche) != clavier.tenues.end(); }

void oublie_touche(int touche) {
    if (const auto place = place_de(touche); place != clavier.tenues.end())
        clavier.tenues.erase(place);
}

void oublie_touches() { clavier = Clavier{}; }

// Insert is the reader's key and no switch to overwriting.
bool touche_reservee(const FrappeTouche& f) {
    if (f.touche == kToucheInser) return !f.maj && !f.ctrl && !f.alt;
    return commande_relachee(f) != nullptr;
}

bool ecrirait(const FrappeTouche& frappe, int caractere) {
    const bool supprime = frappe.touche == kToucheSuppr || frappe.touche == kToucheArriere;
    if (frappe.ctrl && !frappe.alt) return supprime || frappe.touche == 'V' || frappe.touche == 'X';
    if (frappe.alt && !frappe.ctrl) return false;
    const bool colle = frappe.maj && frappe.touche == kToucheInser;
    return caractere >= ' ' || supprime || colle || frappe.touche == kToucheEntree;
}

void touche_texte(const FrappeTouche& frappe) {
    const auto place = place_de(frappe.touche);
    const ToucheTenue tenue =
        place == clavier.tenues.end() ? ToucheTenue{frappe, true, false} : *place;
    oublie_touche(frappe.touche);
    if (frappe.touche == kToucheAlt) {
        clavier.alt_attend = !tenue.servie && alt_en_attente();
        if (clavier.alt_attend || tenue.servie) return;
    }
    sert(reunit(tenue.frappe, frappe), tenue.servie);
    // Alt that came up first says in key help what it says when it comes up last.
    if (clavier.alt_attend && !alt_en_attente()) {
        clavier.alt_attend = false;
        touche_quelconque();
    }
}
