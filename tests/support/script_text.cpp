// The text control as a hand knows it. Changes the text and the selection of the port.
#include "support/script_text.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/typed_text.hpp"
#include "editing/lines.hpp"
#include "platform/platform.hpp"
#include "shell/key_codes.hpp"
#include "shell/window.hpp"
#include "support/script.hpp"
#include "support/script_look.hpp"

namespace {

// The current selection by its two ends. Keys know which one moves; any other selection moves
// at its end.
BoutsSelection bouts_selection() {
    const std::size_t debut = curseur(), fin = fin_selection();
    const auto [bas, haut] = std::minmax(script.bouts.fixe, script.bouts.mobile);
    return bas == debut && haut == fin ? script.bouts : BoutsSelection{debut, fin};
}

void pose_bouts(const BoutsSelection& bouts) {
    script.bouts = bouts;
    const auto [bas, haut] = std::minmax(bouts.fixe, bouts.mobile);
    port.texte.pose_selection(bas, haut - bas);
}

std::size_t debut_ligne(std::string_view texte, std::size_t p) {
    const std::size_t saut = p == 0 ? std::string_view::npos : texte.rfind('\n', p - 1);
    return saut == std::string_view::npos ? 0 : saut + 1;
}

std::size_t fin_ligne(std::string_view texte, std::size_t p) {
    return std::min(texte.find_first_of("\r\n", p), texte.size());
}

// One character back or forth; a line end is one.
std::size_t a_gauche(std::string_view texte, std::size_t p) {
    return p >= 2 && texte.substr(p - 2, 2) == "\r\n" ? p - 2 : p - std::min<std::size_t>(p, 1);
}
std::size_t a_droite(std::string_view texte, std::size_t p) {
    return std::min(p + (texte.substr(p, 2) == "\r\n" ? 2 : 1), texte.size());
}

// The same column of the line above or below, or that line's end; where there is no such line, p.
std::size_t en_haut(std::string_view texte, std::size_t p) {
    const std::size_t debut = debut_ligne(texte, p);
    if (debut == 0) return p;
    const std::size_t fin = a_gauche(texte, debut);
    return std::min(debut_ligne(texte, fin) + (p - debut), fin);
}
std::size_t en_bas(std::string_view texte, std::size_t p) {
    const std::size_t fin = fin_ligne(texte, p);
    if (fin == texte.size()) return p;
    const std::size_t debut = a_droite(texte, fin);
    return std::min(debut + (p - debut_ligne(texte, p)), fin_ligne(texte, debut));
}

// Where a cursor key brings the moving end of the selection.
std::size_t arrivee(const FrappeTouche& f, const BoutsSelection& bouts) {
    const std::string_view texte = port.texte.texte();
    const std::size_t p = bouts.mobile;
    const bool referme =
        !f.maj && bouts.fixe != p;  // the cursor goes to that side of the selection
    switch (f.touche) {
        case kToucheGauche: return referme ? std::min(bouts.fixe, p) : a_gauche(texte, p);
        case kToucheDroite: return referme ? std::max(bouts.fixe, p) : a_droite(texte, p);
        case kToucheHautFleche: return en_haut(texte, p);
        case kToucheBas: return en_bas(texte, p);
        case kToucheDebut: return f.ctrl ? 0 : debut_ligne(texte, p);
        default: return f.ctrl ? texte.size() : fin_ligne(texte, p);
    }
}

// Cursor keys, with Maj to select. Alt leaves them to the program.
void deplace_curseur(const FrappeTouche& f) {
    const bool curseur = f.touche >= kToucheGauche && f.touche <= kToucheFin;
    if (!curseur || f.alt) return;
    exige(!f.ctrl || f.touche >= kToucheDebut, "une touche que la main connaît",
          "une flèche avec Ctrl");
    BoutsSelection bouts = bouts_selection();
    bouts.mobile = arrivee(f, bouts);
    if (!f.maj) bouts.fixe = bouts.mobile;
    pose_bouts(bouts);
}

// Puts `nouveau` in place of the bytes from `debut` to `fin`, with the cursor after it.
void remplace_texte(std::size_t debut, std::size_t fin, std::string_view nouveau) {
    std::string texte = port.texte.texte();
    texte.replace(debut, fin - debut, nouveau);
    port.texte.pose_texte(std::move(texte));
    pose_bouts({debut + nouveau.size(), debut + nouveau.size()});
}

// Deletes the selection, or else one character in front of the cursor or after it.
void efface_caractere(bool devant) {
    const std::string& texte = port.texte.texte();
    std::size_t debut = curseur(), fin = fin_selection();
    if (debut == fin && devant)
        debut = a_gauche(texte, debut);
    else if (debut == fin)
        fin = a_droite(texte, fin);
    if (debut != fin) remplace_texte(debut, fin, "");
}

// Puts a sign in place of the selection as the text control takes it, and says what was another.
void ecrit_signe(std::size_t debut, std::size_t fin, int caractere) {
    const std::string& texte = port.texte.texte();
    const std::string utf8 = vers_utf8(std::string(1, static_cast<char>(caractere)));
    const std::size_t ligne = debut_ligne(texte, debut);
    const TexteSaisi saisi = saisit(utf8, vers_utf8(texte.substr(ligne, debut - ligne)));
    remplace_texte(debut, fin, depuis_utf8(saisi.texte).value());
    evenement_saisie(mots_saisie(saisi, utf8), false);
}

void ecrit_caractere(int caractere) {
    const std::size_t debut = curseur(), fin = fin_selection();
    if (caractere == kCaractereArriere)
        efface_caractere(true);
    else if (caractere == kCaractereEntree)
        remplace_texte(debut, fin, "\r\n");
    else if (caractere >= ' ')
        ecrit_signe(debut, fin, caractere);
}

// The event may have taken the focus or made the text read-only.
bool peut_ecrire() {
    return programme_en_marche() && fenetre.focus == "txt" && est_actif(fenetre.txt) &&
           !fenetre.txt_lecture_seule;
}

}  // namespace

void frappe_texte(const Frappe& frappe) {
    const FrappeTouche& f = frappe.touche;
    if (frappe.caractere != 0) {
        evenement_caractere("txt", frappe.caractere);
        if (peut_ecrire()) ecrit_caractere(frappe.caractere);
    } else if (f.touche == kToucheSuppr && !f.ctrl && !f.maj && !f.alt) {
        if (peut_ecrire()) efface_caractere(false);
    } else {
        deplace_curseur(f);
    }
}
