// What happens in the window: each event runs its command under the last guard, then the window is
// shown as the data has become. After the end of the program nothing happens any more.
#include "shell/events.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/memory_reserve.hpp"
#include "documents/documents.hpp"
#include "documents/recovery.hpp"
#include "documents/saving.hpp"
#include "documents/undo.hpp"
#include "platform/file_failures.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/colours.hpp"
#include "shell/commands.hpp"
#include "shell/function_list.hpp"
#include "shell/heard.hpp"
#include "shell/help_mode.hpp"
#include "shell/listening.hpp"
#include "shell/menus.hpp"
#include "shell/recent_files.hpp"
#include "shell/startup.hpp"
#include "shell/tools.hpp"
#include "shell/views.hpp"
#include "shell/window.hpp"
#include "state/pass_result.hpp"

Remises remises;

namespace {

// An option button of the angle view and the unit that it stands for.
struct OptionAngle {
    std::string_view nom;
    int unite;
};
constexpr std::array kOptionsAngle = {OptionAngle{"OptionDegre", 1}, OptionAngle{"OptionRadian", 2},
                                      OptionAngle{"OptionGrade", 3}};

// The unit of that option button, or 0 for another control.
int unite_option(std::string_view nom) {
    for (const OptionAngle& option : kOptionsAngle)
        if (option.nom == nom) return option.unite;
    return 0;
}

// True when the user can reach the control: it is shown and enabled, and so is its frame.
bool accessible(const Controle& c) { return montre(c) && utilisable(c); }

// A control that has gone can't keep the focus: the text takes it.
void garde_focus() {
    const Controle* c = controle(fenetre.focus);
    if ((c == nullptr || !accessible(*c)) && accessible(fenetre.txt)) donne_focus(fenetre.txt);
}

// The window is brought up to date after an event.
void montre_fenetre() {
    garde_focus();
    port.fenetre.montre();
}

// Runs a command under the last guard.
template <class Action>
void execute(Action&& action) {
    const CommandeEnCours en_cours;
    Tente(kCommande, std::forward<Action>(action));
}

void ouvre_remises();

// Runs an event. A failure that nothing has caught shows its number and ends it. What the user has
// typed before it and what the event changes can be taken back apart, and what was typed is on its way to
// the disk before a command begins that may take long. A calculation sounds once.
template <class Action>
void evenement(Action&& action) {
    if (fenetre.fermee) return;
    reprend_reserve();
    EssaieEnSilence(prend_entendus);
    note_frappe();
    const std::uint32_t passes = passes_commencees();
    releve_reprises();
    const bool dans_une_autre = std::exchange(remises.commande_en_cours, true);
    execute(std::forward<Action>(action));
    remises.commande_en_cours = dans_une_autre;
    if (fenetre.fermee) return;
    if (passes_commencees() != passes) sonne_fin_de_calcul();
    note_commande();
    montre_fenetre();
    suit_reprises();
    if (!dans_une_autre) ouvre_remises();
}

// The same while the toolkit may be in the middle of a change of several parts, which is one for the
// user: a character over a selection. Nothing is noted then; the press that began it has been.
template <class Action>
void frappe_en_cours(Action&& action) {
    if (fenetre.fermee) return;
    EssaieEnSilence(prend_entendus);
    execute(std::forward<Action>(action));
    montre_fenetre();
    suit_reprises();
}

// True when the item can be chosen.
bool disponible(const EtatItem* item) {
    return item != nullptr && item->visible && item->actif;
}

// A character in the text. Any but Escape marks the sheet as changed, also in a text that can't be written;
// key help alone prevents it. Kept: see the oddities, read-only-marks.
void caractere_texte(int code) {
    if (code == kToucheEchap) {
        // The list of colours, opened from the guide, takes the button away when it ends: Escape still
        // leads back to the sheet.
        if (fenetre.CmdVoxtab.visible || documents.liste_fonction_active) CmdVoxtab();
    } else if (!aide.aide_touche) {
        marque_modifie();
    }
}

// Escape on a button, out of the view that it stands in: to the sheet.
void revient_a_la_feuille() {
    if (vue_ouverte(Vue::angle)) return CmdAngle();
    if (vue_ouverte(Vue::choix_couleur)) return RetourListe();
    if (fenetre.CmdVoxtab.visible || documents.liste_fonction_active) CmdVoxtab();
    donne_focus(fenetre.txt);
}

// Tells where the user is, in a view without the text.
void dit_la_vue() {
    if (vue_ouverte(Vue::angle))
        souffle(fenetre.FrameAngle.texte);
    else if (!fenetre.lignes_liste.empty())
        souffle(fenetre.lignes_liste.front());
}

// A character on a button or an option. What is typed there goes to the text; the front end types it.
void caractere_ailleurs(int code) {
    if (code == kToucheEchap)
        revient_a_la_feuille();
    else if (accessible(fenetre.txt))
        donne_focus(fenetre.txt);
    else
        dit_la_vue();
}

// The next line of the list that begins with that letter becomes the chosen one; without one, the list
// says what it is for.
void cherche_dans_la_liste(int code) {
    const std::vector<std::string>& lignes = fenetre.lignes_liste;
    const std::size_t nombre = lignes.size();
    const auto depuis = static_cast<std::size_t>(std::max(fenetre.index_liste, 0));
    for (std::size_t i = 1; i <= nombre; ++i) {
        const std::size_t rang = (depuis + i) % nombre;
        if (rang == 0 || capitale(lignes[rang].front()) != capitale(static_cast<char>(code))) continue;
        fenetre.index_liste = static_cast<int>(rang);
        return;
    }
    if (nombre > 0) souffle(lignes.front());
}

// A character in the list of colours.
void caractere_liste(int code) {
    if (code == kToucheEchap) return RetourListe();
    if (code == kToucheEntree) return void(ValideCouleur());
    cherche_dans_la_liste(code);
}

// The button that can be reached and whose access key that is, or nullptr.
const Controle* bouton_de(const FrappeTouche& f) {
    if (!f.alt || f.ctrl || f.touche < 'A' || f.touche > 'Z') return nullptr;
    for (const Controle* c : controles()) {
        const std::size_t marque = c->texte.find('&');
        const bool sienne = c->nom.starts_with("Cmd") && marque != std::string::npos &&
                            marque + 1 < c->texte.size() && capitale(c->texte[marque + 1]) == f.touche;
        if (sienne && accessible(*c)) return c;
    }
    return nullptr;
}

// What has been handed over during a command, once it has ended.
void ouvre_remises() {
    if (remises.attente.empty()) return;
    const std::string commande = remises.attente.front();
    remises.attente.erase(remises.attente.begin());
    evenement([&] { recoit_feuille(feuille_commandee(commande)); });
}

// Keeps what isn't saved for the next start, or tells why the window can't close. False then.
bool garde_ou_dit() {
    if (garde_reprises()) return true;
    Tente(kCommande, [] {
        port.boites.boite("La fenêtre reste ouverte : les copies de secours ne peuvent pas être écrites. "
                          "Enregistrez vos feuilles."_fr);
    });
    return false;
}

}  // namespace

void evenement_remise(const std::string& commande) {
    remises.attente.push_back(commande);
    if (!remises.commande_en_cours && !fenetre.fermee) ouvre_remises();
}

void evenement_chargement() { evenement(demarre); }

// The window closes all the same when the user cancels or key help is on: the settings aren't written then,
// and the next start offers the sheets that were not saved. Kept: see the oddities, close-box-closes. It
// stays when a sheet couldn't be saved, and when what isn't saved can't be kept for the next start.
void evenement_fermeture() {
    arrete_courbe();
    documents.enregistrement_rate = false;
    evenement([] { execute_commande(kItemQuitter); });
    if (fenetre.fermee || documents.enregistrement_rate) return;
    if (!Tente(kCommande, marque_disparues) || !garde_ou_dit()) return montre_fenetre();
    fenetre.fermee = true;
    port.fenetre.termine();
}

bool evenement_fin_session() {
    if (fenetre.fermee) return true;
    // First what must be written: a file on a disk that doesn't answer may take long to be looked for.
    bool toutes = garde_reprises();
    bool une = false;
    toutes = EssaieEnSilence([&] { une = marque_disparues(); }) && toutes;
    return une ? garde_reprises() : toutes;
}

void evenement_menu(std::string_view nom, int index) {
    arrete_courbe();
    evenement([&] {
        if (nom == kNomRecents) {
            const EtatItem* item = etat_recent(index);
            if (disponible(item)) return mnuOuvrirSousMenuItem(index);
            // An open sheet can be heard there, not chosen.
            if (item != nullptr && item->visible) souffle(item->libelle);
        } else if (disponible(etat_item(nom))) {
            execute_commande(nom);
        }
    });
}

// A click on an option moves the choice and nothing else: the button of the view reads it.
void evenement_clic(std::string_view nom) {
    arrete_courbe();
    evenement([&] {
        const Controle* c = controle(nom);
        if (c == nullptr || !accessible(*c)) return;
        if (const int unite = unite_option(nom); unite != 0) {
            fenetre.option_angle = unite;
            donne_focus(*c);
        } else {
            execute_commande(nom);
        }
    });
}

void evenement_caractere(std::string_view nom, int code) {
    if (nom == "txt" && code != kToucheEchap) return frappe_en_cours([&] { caractere_texte(code); });
    evenement([&] {
        if (nom == "txt") return caractere_texte(code);
        if (nom == "Liste") return caractere_liste(code);
        if (unite_option(nom) != 0 && code == kToucheEntree) return CmdAngle();
        caractere_ailleurs(code);
    });
}

void evenement_lecture_seule() {
    if (!aide.aide_touche) evenement([] { souffle(kLectureSeule); });
}

bool evenement_pression(std::string_view nom, const FrappeTouche& frappe) {
    arrete_courbe();
    const std::string_view item = item_du_raccourci(frappe);
    note_touche_entendus(frappe.touche, item);
    const bool repetee = est_tenue(frappe.touche);
    if (note_pression(nom == "txt", frappe)) return true;
    if (!item.empty()) {
        if (repetee && ligne_menu(item)->une_fois) return true;
        note_servie(frappe.touche);
        evenement_menu(item);
        return true;
    }
    if (nom == "txt" && est_touche_d_ecoute(frappe)) {
        note_servie(frappe.touche);
        evenement([&] { touche_d_ecoute(frappe); });
        return true;
    }
    if (nom == "txt" && est_touche_de_liste(frappe)) {
        note_servie(frappe.touche);
        evenement([&] { touche_de_liste(frappe); });
        return true;
    }
    if (const Controle* bouton = bouton_de(frappe)) {
        note_servie(frappe.touche);
        note_servie(kToucheAlt);
        evenement_clic(bouton->nom);
        return true;
    }
    if (!evenement_enfonce(nom, frappe)) return nom == "txt" && touche_reservee(frappe);
    note_servie(frappe.touche);
    return true;
}

bool evenement_enfonce(std::string_view nom, const FrappeTouche& frappe) {
    const LigneCommande* const commande = nom == "txt" ? commande_enfoncee(frappe) : nullptr;
    if (commande == nullptr) {
        evenement_avant_changement();
        return false;
    }
    evenement([&] { lance(*commande); });
    return true;
}

void evenement_avant_changement() {
    if (!fenetre.fermee) note_frappe();
}

void evenement_texte_change() {
    frappe_en_cours([] {
        if (!aide.aide_touche) marque_modifie();
    });
}

void evenement_saisie(std::string_view mots, bool refus) {
    if (mots.empty()) return;
    frappe_en_cours([&] {
        if (refus) bips(1);
        // A sign that the sheet can have, or words of the program: both are in the code page.
        dit(depuis_utf8(mots).value_or(""));
    });
}

void evenement_touche(std::string_view nom, const FrappeTouche& frappe) {
    evenement([&] {
        if (nom == "txt") touche_texte(frappe);
        suit_curseur();
    });
}

void evenement_fin_de_son(bool joue) {
    evenement([&] { courbe_finie(joue); });
}
