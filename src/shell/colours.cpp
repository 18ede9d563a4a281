// The choice of colours by a list: first the characters', then the background's.
#include "shell/colours.hpp"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "documents/documents.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/window.hpp"

Couleurs couleurs;

namespace {

constexpr Procedure kPremierPlan{"sur ValidationCouleurPremierPlan", true};
constexpr Procedure kArrierePlan{"sur ValidationCouleurArrierePlan", true};

constexpr std::string_view kInvitePremierPlan = "Choisissez une couleur des caractères"_fr;
constexpr std::string_view kInviteArrierePlan = "Choisissez une couleur d'arrière plan"_fr;

// A line of the list after the prompt: its words and its index in the palette.
struct LigneCouleur {
    std::string_view mots;
    int indice;
};
constexpr std::array kLignesCouleur = {
    LigneCouleur{"Noir", 0},    LigneCouleur{"Gris", 8},
    LigneCouleur{"Bleu", 1},    LigneCouleur{"Bleu clair", 9},
    LigneCouleur{"Vert", 2},    LigneCouleur{"Vert clair", 10},
    LigneCouleur{"Cyan", 3},    LigneCouleur{"Cyan clair", 11},
    LigneCouleur{"Rouge", 4},   LigneCouleur{"Rouge clair", 12},
    LigneCouleur{"Magenta", 5}, LigneCouleur{"Magenta clair", 13},
    LigneCouleur{"Jaune", 6},   LigneCouleur{"Jaune clair", 14},
    LigneCouleur{"Blanc", 7},   LigneCouleur{"Blanc pur", 15},
};

// The text and the buttons as the sheet has them.
void revient_au_texte() {
    fenetre.txt.visible = true;
    donne_focus(fenetre.txt);
    fenetre.CmdVoxtab.texte = "Calculatrice";
    fenetre.CmdVoxtab.visible = documents.liste_fonction_active;
    fenetre.CmdModifTexte.visible = !documents.liste_fonction_active;
    fenetre.CmdQuitter.texte = "&Quitter";
    fenetre.CmdQuitter.visible = true;
}

// The list goes, the text can be used again.
void ferme_liste() {
    fenetre.Liste.actif = fenetre.Liste.visible = false;
    fenetre.txt.actif = true;
}

// The words of a colour of the palette, as the list has them.
std::string_view mots_couleur(int indice) {
    for (const LigneCouleur& ligne : kLignesCouleur)
        if (ligne.indice == indice) return ligne.mots;
    return "";
}

// Tells which colours the text has now.
void dit_couleurs() {
    souffle(std::string("caractères "_fr).append(mots_couleur(fenetre.txt_couleur)) +
            std::string(", arrière plan "_fr).append(mots_couleur(fenetre.txt_fond)));
}

// The two colours that were chosen, on the text and in the settings, unless they are the same.
void applique_couleurs() {
    if (couleurs.couleur_premier_plan == couleurs.couleur_arriere_plan) {
        port.boites.boite("les couleurs caractère et arrière plan sont identiques"_fr);
        return;
    }
    fenetre.txt_couleur = couleurs.couleur_premier_plan;
    fenetre.txt_fond = couleurs.couleur_arriere_plan;
    Tente(kArrierePlan, [] { reglages.table_ini(kLignePolice).champ1 = fenetre.txt_couleur; });
    Tente(kArrierePlan, [] { reglages.table_ini(kLignePolice).champ2 = fenetre.txt_fond; });
    Tente(kArrierePlan, dit_couleurs);
}

}  // namespace

void ouvre_couleurs() {
    couleurs.choix_premier_plan = true;
    fenetre.CmdVoxtab.texte = "OK";
    fenetre.CmdVoxtab.visible = true;
    fenetre.CmdModifTexte.visible = false;
    fenetre.CmdQuitter.texte = "Annuler";
    fenetre.txt.actif = fenetre.txt.visible = false;
    fenetre.Liste.actif = fenetre.Liste.visible = true;
    fenetre.lignes_liste = {std::string(kInvitePremierPlan)};
    ListeCouleur();
}

void ListeCouleur() {
    for (const LigneCouleur& ligne : kLignesCouleur) fenetre.lignes_liste.emplace_back(ligne.mots);
    fenetre.index_liste = 0;
    donne_focus(fenetre.Liste);
}

int RangCouleur(int position) {
    if (position < 1 || static_cast<std::size_t>(position) > kLignesCouleur.size()) return -1;
    return kLignesCouleur[static_cast<std::size_t>(position) - 1].indice;
}

void ValidationCouleurPremierPlan() noexcept {
    const int rang = RangCouleur(fenetre.index_liste);
    if (rang < 0) return;
    couleurs.choix_premier_plan = false;
    couleurs.choix_arriere_plan = true;
    couleurs.couleur_premier_plan = static_cast<std::int16_t>(rang);
    Tente(kPremierPlan, [] { fenetre.lignes_liste = {std::string(kInviteArrierePlan)}; });
    Tente(kPremierPlan, ListeCouleur);
}

void ValidationCouleurArrierePlan() noexcept {
    const int rang = RangCouleur(fenetre.index_liste);
    if (rang < 0) return;
    couleurs.choix_arriere_plan = false;
    couleurs.couleur_arriere_plan = static_cast<std::int16_t>(rang);
    ferme_liste();
    applique_couleurs();
    revient_au_texte();
}

bool ValideCouleur() {
    if (couleurs.choix_premier_plan)
        ValidationCouleurPremierPlan();
    else if (couleurs.choix_arriere_plan)
        ValidationCouleurArrierePlan();
    else
        return false;
    return true;
}

void RetourListe() {
    couleurs.choix_premier_plan = couleurs.choix_arriere_plan = false;
    ferme_liste();
    revient_au_texte();
}
