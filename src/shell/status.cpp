// Title, panels and File menu after a change of sheet or of number mode; the variables are cleared.
#include "shell/status.hpp"

#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "engine/identifiers.hpp"
#include "shell/menus.hpp"
#include "shell/window.hpp"
#include "state/modes.hpp"

namespace {

// In hexadecimal the decimal form isn't looked at.
std::string_view mots_nombre() {
    if (modes.mode_nombre == 2) return "Hexadécimal"_fr;
    if (modes.mode_affichage == 2) return "Flottant"_fr;
    return modes.mode_affichage == 3 ? "Puissance 10"_fr : "Entier"_fr;
}

}  // namespace

std::string_view mots_angle() {
    if (modes.unite_angle == 1) return "Degré"_fr;
    return modes.unite_angle == 2 ? "Radian"_fr : "Grade"_fr;
}

void AfficheStatus() {
    (fenetre.titre = "VOXTAB ") += sans_blancs(ligne_courante_ini().nom);
    ((fenetre.panneaux[0] = mots_nombre()) += ' ') += mots_angle();
    fenetre.panneaux[1] = "feuille " + chiffres(documents.document_courant);
    rebatit_menu_fichier();
    razVar();
}
