// The user's hand: how keys reach the menus, the focused control and the program. Changes the list,
// the options and the focus as the controls of a window do, and calls the events.
#include "support/script_hand.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "shell/events.hpp"
#include "shell/menus.hpp"
#include "shell/window.hpp"
#include "support/script.hpp"
#include "support/script_look.hpp"
#include "support/script_text.hpp"

namespace {

struct NomTouche {
    std::string_view nom;  // UTF-8
    int code;              // of key_codes.hpp
    int caractere;         // that it types, 0 for none
};
constexpr std::array kTouches = {
    NomTouche{"Entrée", kToucheEntree, kCaractereEntree},
    NomTouche{"Échap", kToucheEchap, kCaractereEchap},
    NomTouche{"Arrière", kToucheArriere, kCaractereArriere},
    NomTouche{"Tab", kToucheTab, kCaractereTab},
    NomTouche{"Espace", kToucheAutre, ' '},
    NomTouche{"Gauche", kToucheGauche, 0},
    NomTouche{"Droite", kToucheDroite, 0},
    NomTouche{"Haut", kToucheHautFleche, 0},
    NomTouche{"Bas", kToucheBas, 0},
    NomTouche{"Début", kToucheDebut, 0},
    NomTouche{"Fin", kToucheFin, 0},
    NomTouche{"PagePréc", kTouchePagePrecedente, 0},
    NomTouche{"PageSuiv", kTouchePageSuivante, 0},
    NomTouche{"Inser", kToucheInser, 0},
    NomTouche{"Suppr", kToucheSuppr, 0},
};

// Signs of a French keyboard with AltGr.
constexpr std::string_view kTouchesAltGr = "234567890E";
constexpr std::string_view kSignesAltGr = "~#{[|`\\^@\x80";

// --- The name of a key --------------------------------------------------------------------------

bool est_lettre(int code) { return code >= 'A' && code <= 'Z'; }

// Code of the key that bears a sign: letters and digits have their own.
int code_du_signe(char signe) {
    const char grand = capitale(signe);
    const bool propre = est_lettre(grand) || (grand >= '0' && grand <= '9');
    return propre ? grand : static_cast<int>(kToucheAutre);
}

// A key by its name or its one character; small letters name the same key as the capitals.
NomTouche touche_nommee(std::string_view nom) {
    const auto* const nommee = std::find_if(kTouches.begin(), kTouches.end(),
                                            [&](const NomTouche& t) { return t.nom == nom; });
    if (nommee != kTouches.end()) return *nommee;
    for (int f = 1; f <= 12; ++f)
        if (nom == "F" + std::to_string(f)) return {nom, kToucheF1 + f - 1, 0};
    const auto signe = depuis_utf8(nom);
    exige(signe && signe->size() == 1, "une touche", std::string(nom));
    const int code = code_du_signe(signe->front());
    return {nom, code, est_lettre(code) ? code + 32 : static_cast<unsigned char>(signe->front())};
}

// The character that the key types with the modifiers held: AltGr gives the signs of the keyboard,
// Ctrl or Alt alone no character.
int caractere_frappe(const NomTouche& touche, const FrappeTouche& f) {
    const std::size_t rang = touche.code > 0 && touche.code < 256
                                 ? kTouchesAltGr.find(static_cast<char>(touche.code))
                                 : std::string_view::npos;
    if (f.ctrl && f.alt)
        return rang == std::string_view::npos ? 0 : static_cast<unsigned char>(kSignesAltGr[rang]);
    if (f.ctrl || f.alt) return 0;
    return f.maj && est_lettre(touche.code) ? touche.code : touche.caractere;
}

// The key that types a character without modifiers; capitals and signs come as they are.
Frappe frappe_caractere(int caractere) {
    const auto* const nommee =
        std::find_if(kTouches.begin(), kTouches.end(),
                     [&](const NomTouche& t) { return t.caractere == caractere; });
    Frappe frappe;
    frappe.caractere = caractere;
    frappe.touche.touche =
        nommee != kTouches.end() ? nommee->code : code_du_signe(static_cast<char>(caractere));
    return frappe;
}

// Sets the modifier of that name; false when the name is no modifier's.
bool enfonce_modificateur(FrappeTouche& f, std::string_view nom) {
    if (nom != "Ctrl" && nom != "Maj" && nom != "Alt" && nom != "AltGr") return false;
    f.ctrl = f.ctrl || nom == "Ctrl" || nom == "AltGr";
    f.alt = f.alt || nom == "Alt" || nom == "AltGr";
    f.maj = f.maj || nom == "Maj";
    return true;
}

// The key that a word names, with the modifiers of the word and those that are held already.
Frappe lit_frappe(std::string_view mot, const FrappeTouche& tenus = {}) {
    Frappe frappe;
    frappe.touche = tenus;
    frappe.touche.touche = kToucheAucune;
    for (;;) {
        const std::size_t plus = mot.find('+', 1);  // the key "+" itself may stand last
        const std::string_view nom = mot.substr(0, plus);
        if (plus == std::string_view::npos && enfonce_modificateur(frappe.touche, nom))
            return frappe;
        if (plus == std::string_view::npos) {
            const NomTouche touche = touche_nommee(nom);
            frappe.touche.touche = touche.code;
            frappe.caractere = caractere_frappe(touche, frappe.touche);
            return frappe;
        }
        exige(enfonce_modificateur(frappe.touche, nom), "Ctrl, Maj, Alt ou AltGr",
              std::string(nom));
        mot.remove_prefix(plus + 1);
        exige(!mot.empty(), "une touche", "rien");
    }
}

// --- What the other controls do -----------------------------------------------------------------

// The list moves its selected line; characters go to the program.
void frappe_liste(const Frappe& frappe) {
    const int dernier = static_cast<int>(fenetre.lignes_liste.size()) - 1;
    int& rang = fenetre.index_liste;
    switch (frappe.touche.touche) {
        case kToucheHautFleche: rang = std::max(rang - 1, std::min(0, dernier)); break;
        case kToucheBas: rang = std::min(rang + 1, dernier); break;
        case kToucheDebut: rang = std::min(0, dernier); break;
        case kToucheFin: rang = dernier; break;
        default:
            if (frappe.caractere != 0) evenement_caractere("Liste", frappe.caractere);
    }
}

// Arrows turn the next option of the frame on; characters go to the program.
void frappe_option(const Frappe& frappe) {
    constexpr std::array kOptions = {"OptionDegre", "OptionRadian", "OptionGrade"};
    const int touche = frappe.touche.touche;
    const int pas = touche == kToucheBas || touche == kToucheDroite          ? 1
                    : touche == kToucheHautFleche || touche == kToucheGauche ? 2
                                                                             : 0;
    if (pas == 0 && frappe.caractere != 0) evenement_caractere(fenetre.focus, frappe.caractere);
    if (pas == 0) return;
    const char* const option =
        kOptions[static_cast<std::size_t>(fenetre.option_angle - 1 + pas) % 3];
    donne_focus(controle_nomme(option));
    evenement_clic(option);
}

void frappe_bouton(const Frappe& frappe) {
    if (frappe.caractere == kCaractereEntree || frappe.caractere == ' ')
        evenement_clic(fenetre.focus);
    else if (frappe.caractere != 0)
        evenement_caractere(fenetre.focus, frappe.caractere);
}

// Controls that can take the focus, in the tab order.
std::vector<const Controle*> ordre_du_focus() {
    std::vector<const Controle*> ordre;
    for (const Controle* c : controles())
        if (est_actif(*c) && c->nom != "StatusBar" && c->nom != "LblMessage" &&
            c->nom != "FrameAngle")
            ordre.push_back(c);
    std::sort(ordre.begin(), ordre.end(),
              [](const Controle* a, const Controle* b) { return a->ordre_tab < b->ordre_tab; });
    return ordre;
}

// Tab gives the focus to the next control, Maj+Tab to the one before.
void frappe_tab(bool recule) {
    const std::vector<const Controle*> ordre = ordre_du_focus();
    if (ordre.empty()) return;
    const auto ici = std::find_if(ordre.begin(), ordre.end(),
                                  [](const Controle* c) { return c->nom == fenetre.focus; });
    const std::size_t rang = static_cast<std::size_t>(ici - ordre.begin());
    const std::size_t pas = recule ? ordre.size() - 1 : 1;
    donne_focus(*ordre[ici == ordre.end() ? 0 : (rang + pas) % ordre.size()]);
}

// --- The way of a key ---------------------------------------------------------------------------

// The menus and the letters of the buttons take their keys first, then the focused control.
void enfonce(const Frappe& frappe) {
    const FrappeTouche& f = frappe.touche;
    if (evenement_pression(fenetre.focus, f)) return;
    if (f.touche == kToucheTab && !f.ctrl && !f.alt) return frappe_tab(f.maj);
    if (!est_actif(controle_nomme(std::string(fenetre.focus)))) return;
    if (fenetre.focus == "txt") return frappe_texte(frappe);
    if (fenetre.focus == "Liste") return frappe_liste(frappe);
    if (fenetre.focus.starts_with("Option")) return frappe_option(frappe);
    frappe_bouton(frappe);
}

// The text control reports the release of a key while it has the focus; elsewhere it is only over.
void relache(const FrappeTouche& f) {
    if (programme_en_marche() && fenetre.focus == "txt" && est_actif(fenetre.txt))
        evenement_touche("txt", f);
    else
        oublie_touche(f.touche);
}

// The modifiers and their keys, in the order in which a hand lets them go.
constexpr std::array kModificateurs = {std::pair{&FrappeTouche::ctrl, kToucheCtrl},
                                       std::pair{&FrappeTouche::maj, kToucheMaj},
                                       std::pair{&FrappeTouche::alt, kToucheAlt}};

// The modifiers of `voulus` go down beside those that are down.
void enfonce_modificateurs(FrappeTouche& tenus, const FrappeTouche& voulus) {
    for (const auto& [modificateur, code] : kModificateurs) {
        if (!(voulus.*modificateur) || std::exchange(tenus.*modificateur, true)) continue;
        tenus.touche = code;
        evenement_pression(fenetre.focus, tenus);
    }
}

// They come up, each with the others still down.
void relache_modificateurs(FrappeTouche& tenus, const FrappeTouche& voulus) {
    for (const auto& [modificateur, code] : kModificateurs) {
        if (!(voulus.*modificateur) || !std::exchange(tenus.*modificateur, false)) continue;
        tenus.touche = code;
        relache(tenus);
    }
}

void frappe_entiere(const Frappe& frappe) {
    FrappeTouche tenus;
    enfonce_modificateurs(tenus, frappe.touche);
    if (frappe.touche.touche != kToucheAucune) {
        enfonce(frappe);
        relache(frappe.touche);
    }
    relache_modificateurs(tenus, frappe.touche);
}

void exige_marche() { exige(programme_en_marche(), "un programme en marche", "aucun"); }

}  // namespace

void touche(Etape& etape) {
    exige_marche();
    frappe_entiere(lit_frappe(prend_mot(etape)));
}

void presse(Etape& etape) {
    exige_marche();
    const Frappe frappe = lit_frappe(prend_mot(etape), script.tenus);
    if (frappe.touche.touche == kToucheAucune)
        enfonce_modificateurs(script.tenus, frappe.touche);
    else
        enfonce(frappe);
}

void lache(Etape& etape) {
    exige_marche();
    const std::string mot = prend_mot(etape);
    const FrappeTouche nommee = lit_frappe(mot).touche;
    if (nommee.touche == kToucheAucune)
        relache_modificateurs(script.tenus, nommee);
    else
        relache(lit_frappe(mot, script.tenus).touche);
}

void tape(Etape& etape) {
    const std::string texte = prend_texte(etape);
    for (std::size_t i = 0; i < texte.size(); ++i) {
        exige_marche();
        const int caractere = static_cast<unsigned char>(texte[i]);
        if (caractere != '\n') frappe_entiere(frappe_caractere(caractere));  // CR LF is one key
    }
}

void clique(Etape& etape) {
    exige_marche();
    const Controle& c = controle_nomme(prend_mot(etape));
    exige(c.nom.starts_with("Cmd") || c.nom.starts_with("Option"), "un bouton ou une option",
          std::string(c.nom));
    exige(est_actif(c), std::string(c.nom) + " visible et actif",
          est_montre(c) ? "inactif" : "caché");
    evenement_clic(c.nom);
}

void choisit(Etape& etape) {
    exige_marche();
    const std::string nom = prend_mot(etape);
    const bool recent = nom == "mnuOuvrirSousMenuItem";
    const int index = recent ? static_cast<int>(prend_rang(etape, 1, kItemsRecents)) : 0;
    const EtatItem* const item =
        recent ? &menus.recents[static_cast<std::size_t>(index)] : etat_item(nom);
    exige(item != nullptr, "un article de menu", nom);
    exige(item->visible && item->actif, nom + " visible et actif",
          item->visible ? "inactif" : "caché");
    evenement_menu(nom, index);
}

void curseur(Etape& etape) {
    exige_marche();
    const auto debut = static_cast<std::size_t>(prend_rang(etape, 0, 1'000'000'000));
    const long longueur = suit_mot(etape) ? prend_rang(etape, 0, 1'000'000'000) : 0;
    port.texte.pose_selection(debut, static_cast<std::size_t>(longueur));
}
