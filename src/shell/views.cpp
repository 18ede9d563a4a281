// The views of the window: the sheet, the angle, the read-only texts, the key help.
#include "shell/views.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "documents/documents.hpp"
#include "documents/working_copies.hpp"
#include "editing/lines.hpp"
#include "editing/search.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/calculation.hpp"
#include "shell/colours.hpp"
#include "shell/help_mode.hpp"
#include "shell/status.hpp"
#include "shell/window.hpp"
#include "state/modes.hpp"

namespace {

// The sheet gives way to a text that can be read and not written; its line at `position` (from 1) is said. From
// here on the working copy isn't written.
void montre_texte(std::string texte, std::size_t position = 1) {
    EcritNomCopie();
    ferme_choix();
    documents.liste_fonction_active = true;
    documents.repere_lecture = 0;
    fenetre.liste_fonctions = fenetre.courbe_ecoutee = false;
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(position, 0);
    fenetre.txt_lecture_seule = true;
    souffle(kLectureSeule);
    dit(extraitLigne(position));
    fenetre.CmdVoxtab.visible = true;
    fenetre.CmdModifTexte.visible = false;
}

// A text of the program's folder, without its last line end. It is read before the sheet gives way, so
// that the sheet stays where the file is missing.
std::string lit_texte_programme(std::string_view nom) {
    std::string texte = lit_lignes(reglages.dossier_programme + std::string(nom));
    texte.resize(texte.size() - std::min<std::size_t>(texte.size(), 2));
    return texte;
}

// The option button of the current unit.
Controle& option_active() {
    if (fenetre.option_angle == 1) return fenetre.OptionDegre;
    return fenetre.option_angle == 2 ? fenetre.OptionRadian : fenetre.OptionGrade;
}

// The angle view, or the sheet again.
void montre_angle(bool angle) {
    fenetre.FrameAngle.actif = fenetre.FrameAngle.visible = angle;
    fenetre.CmdModifTexte.actif = !angle;
    fenetre.CmdModifTexte.visible = !angle && !documents.liste_fonction_active;
    fenetre.txt.actif = fenetre.txt.visible = !angle;
}

// The sheet comes back in place of the text of another view.
void ramene_feuille() {
    const bool ailleurs = !feuille_montree();
    documents.liste_fonction_active = false;
    fenetre.liste_fonctions = fenetre.courbe_ecoutee = false;
    aide.aide_touche = false;
    if (ailleurs) remontre_feuille();
    fenetre.txt_lecture_seule = false;
    fenetre.CmdVoxtab.visible = false;
    fenetre.CmdModifTexte.visible = true;
}

}  // namespace

bool texte_modifiable() { return fenetre.txt.visible && !fenetre.txt_lecture_seule; }

void ferme_choix() {
    if (vue_ouverte(Vue::choix_couleur)) RetourListe();
    if (!vue_ouverte(Vue::angle)) return;
    montre_angle(false);
    donne_focus(fenetre.txt);
}

// The commands that show another sheet act on sheets: what is typed afterwards must be what is saved.
bool quitte_vues() {
    const bool ailleurs = !texte_modifiable();
    ferme_choix();
    if (documents.liste_fonction_active) ramene_feuille();
    return ailleurs;
}

void mnuCouleurEcran() {
    ferme_choix();
    ouvre_couleurs();
}

void mnuAngleItem() {
    ferme_choix();
    montre_angle(true);
    const int unite = modes.unite_angle;
    fenetre.option_angle = unite == 1 || unite == 2 ? unite : 3;
    donne_focus(option_active());
}

void CmdAngle() {
    montre_angle(false);
    modes.unite_angle = static_cast<std::int16_t>(fenetre.option_angle);
    reglages.table_ini(kLigneAngle).champ1 = modes.unite_angle;
    AfficheStatus();
    donne_focus(fenetre.txt);
    souffle(mots_angle());
    if (!annonce_mots(kMotsCalcul)) recalcul();
}

void CmdVoxtab() {
    if (vue_ouverte(Vue::choix_couleur) && ValideCouleur()) return;
    aide.aide_touche_traitee = true;
    ramene_feuille();
    dit(extraitLigne(curseur()));
}

void CmdModifTexte() {
    donne_focus(fenetre.txt);
    modifTexte();
}

// Going off brings the sheet back from every view: the list of colours goes first. Going on keeps the sheet
// first: where its copy can't be written the mode doesn't begin.
void mnuAideToucheItem() {
    if (aide.aide_touche) {
        if (vue_ouverte(Vue::choix_couleur)) RetourListe();
        CmdVoxtab();
        return;
    }
    EcritNomCopie();
    aide.aide_touche = true;
    port.texte.pose_texte("");
    fenetre.txt_lecture_seule = true;
    dit("Aide Mémoire des touches"_fr);
    aide.aide_touche_traitee = true;
}

void montre_lecture(std::string texte) { montre_texte(std::move(texte)); }

void AfficheFonction() {
    montre_texte(lit_texte_programme("fonction.txt"));
    fenetre.liste_fonctions = true;
}

std::string texte_du_guide() { return lit_texte_programme("aide.txt"); }

// The cursor stands behind the first character of the line, as it does when the guide opens at its beginning.
void montre_guide(std::string guide, std::size_t position) { montre_texte(std::move(guide), position + 1); }

void mnuAideTxtItem() { montre_guide(texte_du_guide(), 0); }

void mnuApropos() {
    montre_texte(std::string("VOXTAB Version 2.02\r\nDécembre 2008\r\nL'équipe Voxtab\r\n"
                             "Contact : voir le fichier lisezmoi.txt"_fr));
}

// Without a blank in the line the whole line is the word.
void RangeFonction() {
    const std::string ligne = extraitLigne(curseur());
    if (ligne.starts_with(' ')) {
        port.boites.bip();
        return;
    }
    const std::string mot = ligne.substr(0, ligne.find(' '));
    const std::size_t debut = curseur();
    std::string texte = port.texte.texte();
    texte.replace(debut, fin_selection() - debut, mot);
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(debut + mot.size(), 0);
    dit(extraitLigne(curseur()));
}
