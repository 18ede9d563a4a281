// The keys of the text: which are down, and the command that each runs as it goes down or comes up.
// Changes `clavier` and, through the commands, the sheet.
#include "shell/keys.hpp"

#include <algorithm>
#include <array>

#include "documents/open_documents.hpp"
#include "documents/saving.hpp"
#include "documents/undo.hpp"
#include "editing/search.hpp"
#include "editing/words.hpp"
#include "platform/message.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "shell/help_mode.hpp"
#include "shell/menu_table.hpp"
#include "shell/views.hpp"

Clavier clavier;

namespace {

// What must be down with a key that the text handles.
enum class Avec { rien, alt, ctrl, maj_ctrl };

struct ToucheTexte {
    int touche;
    Avec avec;
    void (*action)();
};

// The keys that the text handles on their release. Only the bits named are looked at: AltGr, which is
// Ctrl and Alt, does for Alt. A key that isn't here with its modifiers is "any other".
constexpr std::array kTouchesTexte = {
    ToucheTexte{kToucheF1, Avec::alt, AfficheFonction},
    ToucheTexte{kToucheGauche, Avec::alt, chaineGAUCHE},
    ToucheTexte{kToucheDroite, Avec::alt, chainedroite},
    ToucheTexte{kToucheSuppr, Avec::rien, marque_modifie},
    ToucheTexte{kToucheEntree, Avec::ctrl, calcul_colonne},
    ToucheTexte{'C', Avec::alt, [] { recalcul(); }},
    ToucheTexte{'R', Avec::alt, mnuRechercherCurseurItem},
    ToucheTexte{'S', Avec::maj_ctrl, [] { enregistrersous(); }},
    ToucheTexte{kToucheFin, Avec::rien, [] {}},
    ToucheTexte{kToucheMaj, Avec::rien, [] {}},
    ToucheTexte{kToucheCtrl, Avec::rien, [] {}},
};

bool tient(const FrappeTouche& frappe, Avec avec) {
    switch (avec) {
        case Avec::alt: return frappe.alt;
        case Avec::ctrl: return frappe.ctrl;
        case Avec::maj_ctrl: return frappe.maj && frappe.ctrl;
        case Avec::rien: break;
    }
    return true;
}

// The row of that key with those modifiers, or nullptr.
const ToucheTexte* touche_du_texte(const FrappeTouche& frappe) {
    const auto* const ligne =
        std::find_if(kTouchesTexte.begin(), kTouchesTexte.end(), [&](const ToucheTexte& t) {
            return t.touche == frappe.touche && tient(frappe, t.avec);
        });
    return ligne == kTouchesTexte.end() ? nullptr : ligne;
}

// The keys that the text takes as they are pressed, so that they repeat while they are held down. The
// modifiers must be those and no other: AltGr types characters.
struct ToucheEnfoncee {
    FrappeTouche frappe;
    void (*action)();
};
constexpr std::array kTouchesEnfoncees = {
    ToucheEnfoncee{{'Z', false, true, false}, annule},
    ToucheEnfoncee{{'Z', true, true, false}, retablit},
};

bool meme_frappe(const FrappeTouche& a, const FrappeTouche& b) {
    return a.touche == b.touche && a.maj == b.maj && a.ctrl == b.ctrl && a.alt == b.alt;
}

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

// The modifiers of both moments. AltGr that comes behind a key that has typed is on its way to the next
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
    const ToucheTexte* const ligne = touche_du_texte(f);
    return ligne != nullptr && ligne->avec != Avec::rien;
}

void (*commande_enfoncee(const FrappeTouche& frappe))() {
    for (const ToucheEnfoncee& ligne : kTouchesEnfoncees)
        if (meme_frappe(ligne.frappe, frappe)) return ligne.action;
    return nullptr;
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
    const ToucheTexte* const ligne = touche_du_texte(reunit(tenue.frappe, frappe));
    if (ligne == nullptr || tenue.servie) {
        touche_quelconque();
    } else {
        ligne->action();
    }
    // Alt that came up first says in key help what it says when it comes up last.
    if (clavier.alt_attend && !alt_en_attente()) {
        clavier.alt_attend = false;
        touche_quelconque();
    }
}
