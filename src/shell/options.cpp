// The Options menu. Changes the modes, the settings table, the captions of the items, the font of the
// text, and through the pass the sheet.
#include "shell/options.hpp"

#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/dialog.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/calculation.hpp"
#include "shell/menus.hpp"
#include "shell/status.hpp"
#include "shell/window.hpp"
#include "state/modes.hpp"

namespace {

constexpr int kDecimalesRefusees = 101;

// Stores the current modes in the settings table. The hexadecimal mode leaves the decimal form
// alone, and it isn't stored again.
void note_modes(bool avec_affichage) {
    article& nombres = reglages.table_ini(kLigneNombres);
    nombres.champ1 = modes.mode_nombre;
    if (avec_affichage) nombres.champ3 = modes.mode_affichage;
}

// A number-mode command. An `affichage` of 0 leaves the decimal form as it is.
void change_mode(std::int16_t nombre, std::int16_t affichage) {
    modes.mode_nombre = nombre;
    if (affichage != 0) modes.mode_affichage = affichage;
    note_modes(affichage != 0);
    recalcul();
    AfficheStatus();
}

// Takes one answer for the decimals; one that fits no integer is told and leaves `nombre` as it was. There
// is no lower bound. Kept: see the oddities, decimals-without-a-floor. True when it was refused as too
// large and must be asked again.
bool prend_decimales(const std::string& reponse, std::int16_t& nombre) {
    Tente(kCommande, [&] { nombre = vers_16_arrondi(prefixe_numerique(reponse)); });
    if (nombre >= kDecimalesRefusees) {
        port.boites.boite("nombre de décimal maximum est de 100"_fr);
        return true;
    }
    modes.nombre_decimal = nombre;
    reglages.table_ini(kLigneNombres).champ2 = nombre;
    recalcul();
    return false;
}

// Tells the font of these rows and, when the user wants another one, takes it into them. False when
// the dialog was left without a choice; `change` tells whether there is a new font.
bool choisit_police(int ligne_nom, int ligne_taille, std::string_view question, bool& change) {
    std::string& nom = reglages.table_ini(ligne_nom).nom;
    std::string& taille = reglages.table_ini(ligne_taille).nom;
    port.boites.boite("police " + nom + " Taille " + taille);
    change = port.boites.oui_non(question);
    if (!change) return true;
    dlg.police_nom = nom;
    dlg.police_taille = prefixe_numerique(taille);
    const bool imprimante = ligne_nom == kLignePoliceImprimante;
    if (!port.dialogues.police(dlg.police_nom, dlg.police_taille, imprimante)) return false;
    nom = dlg.police_nom;
    taille = texte_general(dlg.police_taille);
    return true;
}

// The command of a font: any failure is told as a dialog that was left. True when there is a new
// font.
bool demande_police(int ligne_nom, int ligne_taille, std::string_view question) {
    bool change = false;
    try {
        if (choisit_police(ligne_nom, ligne_taille, question, change)) return change;
    } catch (...) {
        // Told below, like Cancel.
    }
    port.boites.boite("Vous n'avez sélectionné aucune police."_fr);
    return false;
}

}  // namespace

void mnuEntierItem() { change_mode(1, 1); }
void mnuFlottantItem() { change_mode(1, 2); }
void mnuPuissanceItem() { change_mode(1, 3); }
void mnuHexaItem() { change_mode(2, 0); }

void mnuNombreDecimalItem() {
    std::int16_t nombre = 0;
    bool encore = true;
    while (encore) {
        std::string reponse;
        if (!port.boites.saisie("Nombre de décimal"_fr, chiffres(modes.nombre_decimal), reponse) ||
            reponse.empty())
            return;
        encore = prend_decimales(reponse, nombre);
    }
}

void mnuDerniereFeuilleItem() {
    EtatItem* item = etat_item(kItemDerniereFeuille);
    if (item == nullptr) return;
    item->coche = !item->coche;
    reglages.table_ini(kLigneAngle).champ2 = item->coche ? 1 : 0;
}

// The test is for 1: any other value counts as "in line".
void mnuColonneMatrice() {
    std::int32_t& colonne = reglages.table_ini(kLigneAffichage).champ1;
    colonne = colonne != 1 ? 1 : 0;
    pose_libelle_matrice(colonne == 1);
    dit(colonne == 1 ? "en colonne"_fr : "en ligne"_fr);
}

// Here the test is for 0, so that a value other than 0 and 1 becomes 0. Kept: see the oddities,
// statistics-field. The complete caption has a capital here and a small letter at start-up. Kept: see the
// oddities, caption-of-statistics.
void mnuLigneStat() {
    std::int32_t& restreint = reglages.table_ini(kLigneAffichage).champ2;
    restreint = restreint != 0 ? 0 : 1;
    pose_libelle_stat(restreint == 1, "Résultat statistique restreint/complet : complet"_fr);
    dit(restreint == 1 ? "affichage restreint"_fr : "affichage complet"_fr);
}

void mnuPoliceEcran() {
    if (!demande_police(kLignePolice, kLigneTaille,
                        "Voulez vous modifier la police de l'écran"_fr))
        return;
    fenetre.txt.police.nom = dlg.police_nom;
    fenetre.txt.police.taille = dlg.police_taille;
}

void mnuPoliceImprimante() {
    demande_police(kLignePoliceImprimante, kLigneTailleImprimante,
                   "Voulez vous modifier la police de l'imprimante"_fr);
}
