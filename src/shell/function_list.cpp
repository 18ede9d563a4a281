// The keys of the list of functions.
#include "shell/function_list.hpp"

#include <algorithm>
#include <cstddef>

#include "base/codepage.hpp"
#include "documents/documents.hpp"
#include "editing/lines.hpp"
#include "functions/table.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/help_mode.hpp"
#include "shell/views.hpp"
#include "shell/window.hpp"

namespace {

bool est_touche_lettre(int touche) { return touche >= 'A' && touche <= 'Z'; }

// Number of the function of that name; 0 for none.
int rang_de(std::string_view nom) {
    for (int rang = 1; rang <= kNombreFonctions; ++rang)
        if (capitales(nom_fonction_interne(rang)) == nom) return rang;
    return 0;
}

// Brings the sheet back and writes at its cursor. What is selected there stays: who has chosen a function doesn't
// hear of it any more.
void insere_fonction() {
    const std::string mot = texte_de_fonction(extraitLigne(curseur()));
    if (mot.empty()) return dit(kPasDeFonctionIci);
    quitte_vues();
    const std::size_t debut = fin_selection();
    std::string texte = port.texte.texte();
    texte.insert(debut, mot);
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(debut + mot.size(), 0);
    marque_modifie();
    dit(extraitLigne(curseur()));
}

// Goes to the next line that begins with the letter, from the top again behind the last one, and says it.
void va_a_la_lettre(char lettre) {
    const std::string& texte = port.texte.texte();
    const Etendue ici = etendue_autour(texte, curseur());
    Etendue ligne = ici;
    do {
        const std::size_t debut = ligne.fin >= texte.size() ? 0 : ligne.fin + 2;
        ligne = etendue_autour(texte, debut);
        if (ligne.debut < ligne.fin && capitale(texte[ligne.debut]) == lettre) {
            const std::string dite(mots_de(texte, ligne));
            port.texte.pose_selection(ligne.debut, 0);
            return dit(dite);
        }
    } while (ligne.debut != ici.debut);
    dit(std::string(kPasDeFonctionEn) += lettre);
}

}  // namespace

// In key help the keys are only told.
bool est_touche_de_liste(const FrappeTouche& frappe) {
    if (aide.aide_touche) return false;
    const bool sienne = est_touche_lettre(frappe.touche) || frappe.touche == kToucheEntree;
    return fenetre.liste_fonctions && fenetre.txt.visible && sienne && !frappe.ctrl && !frappe.alt;
}

// A key in a text that can't be written marks the sheet as changed all the same. Kept: see the oddities,
// read-only-marks.
void touche_de_liste(const FrappeTouche& frappe) {
    if (frappe.touche == kToucheEntree) return insere_fonction();
    marque_modifie();
    va_a_la_lettre(static_cast<char>(frappe.touche));
}

std::string texte_de_fonction(std::string_view ligne) {
    const std::string mot(ligne.substr(0, ligne.find(' ')));
    if (mot == "NOT") return mot + " ";
    if (mot == "AND" || mot == "OR" || mot == "XOR") return " " + mot + " ";
    const int rang = mot.empty() ? 0 : rang_de(capitales(mot));
    if (rang == 0) return mot;
    const LigneFonction& fonction = ligne_fonction(rang);
    if (fonction.lecture == Lecture::nom_seul) return mot;
    return mot + (fonction.place == Place::au_milieu ? "X(" : "(");
}
