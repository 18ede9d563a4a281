// The calculation and number-mode commands. Change the modes, the settings table and, through the
// pass, the sheet.
#include "shell/commands.hpp"

#include <array>
#include <cstdint>
#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/settings.hpp"
#include "editing/lines.hpp"
#include "engine/context.hpp"
#include "platform/platform.hpp"
#include "shell/help_mode.hpp"
#include "shell/message.hpp"
#include "shell/status.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "sheet/sheet.hpp"

namespace {

// A failure that no procedure has caught ends the command: the box has the number alone, twice.
constexpr Procedure kCommande{"", false};

constexpr int kDecimalesRefusees = 101;

// Stores the modes of the moment in the settings table. The hexadecimal mode leaves the decimal form
// alone, and it isn't stored again.
void note_modes(bool avec_affichage) {
    article& nombres = reglages.table_ini(kLigneNombres);
    nombres.champ1 = modes.mode_nombre;
    if (avec_affichage) nombres.champ3 = modes.mode_affichage;
}

// A number-mode command: its words are said first, in key-help mode they are all that it does.
void change_mode(std::string_view mots, std::int16_t nombre, std::int16_t affichage) {
    dit(mots);
    if (aide.aide_touche) {
        aide.aide_touche_traitee = true;
        return;
    }
    modes.mode_nombre = nombre;
    if (affichage != 0) modes.mode_affichage = affichage;
    note_modes(affichage != 0);
    recalcul();
    AfficheStatus();
}

// Takes one answer for the decimals; one that fits no integer is told and leaves `nombre` as it was.
// True when it was refused as too large and must be asked again.
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

struct Commande {
    std::string_view nom;
    void (*execute)();
};
constexpr std::array kCommandes = {
    Commande{"recalcul", [] { recalcul(); }},
    Commande{"calcul_colonne", calcul_colonne},
    Commande{"mnuCalculItem", mnuCalculItem},
    Commande{"mnuCalculColonneItem", mnuCalculColonneItem},
    Commande{"MnuParleResultatItem", MnuParleResultatItem},
    Commande{"mnuEntierItem", mnuEntierItem},
    Commande{"mnuFlottantItem", mnuFlottantItem},
    Commande{"mnuPuissanceItem", mnuPuissanceItem},
    Commande{"mnuHexaItem", mnuHexaItem},
    Commande{"mnuNombreDecimalItem", mnuNombreDecimalItem},
    Commande{"mnuColonneMatrice", mnuColonneMatrice},
    Commande{"mnuLigneStat", mnuLigneStat},
};

}  // namespace

void mnuCalculItem() { recalcul(); }
void mnuCalculColonneItem() { calcul_colonne(); }

void MnuParleResultatItem() {
    if (annonce_aide("Resultat de la ligne"_fr)) return;
    const std::int16_t numero = NumeroTxt(port.texte.sel_start());
    if (feuille.nombre_ligne < 1 || numero > feuille.nombre_ligne) return;
    dit(feuille.resultat_ligne(numero));
}

void mnuEntierItem() { change_mode("Entier"_fr, 1, 1); }
void mnuFlottantItem() { change_mode("Flottant"_fr, 1, 2); }
void mnuPuissanceItem() { change_mode("Flottant en puissance de 10"_fr, 1, 3); }
void mnuHexaItem() { change_mode("Hexadécimal"_fr, 2, 0); }

void mnuNombreDecimalItem() {
    if (annonce_aide("nombre de décimal"_fr)) return;
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

void mnuColonneMatrice() {
    std::int32_t& colonne = reglages.table_ini(kLigneAffichage).champ1;
    colonne = colonne != 1 ? 1 : 0;
    dit(colonne == 1 ? "en colonne"_fr : "en ligne"_fr);
}

void mnuLigneStat() {
    std::int32_t& restreint = reglages.table_ini(kLigneAffichage).champ2;
    restreint = restreint != 0 ? 0 : 1;
    dit(restreint == 1 ? "affichage restreint"_fr : "affichage complet"_fr);
}

bool execute_commande(std::string_view nom) {
    for (const Commande& commande : kCommandes) {
        if (commande.nom != nom) continue;
        Tente(kCommande, commande.execute);
        return true;
    }
    return false;
}
