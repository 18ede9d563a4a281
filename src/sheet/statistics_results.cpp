// Writes the statistics held by the variables into resultat_bloc, complete or restricted.
#include "sheet/statistics_results.hpp"

#include <algorithm>
#include <span>
#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/number_text.hpp"
#include "settings/settings.hpp"
#include "state/pass_result.hpp"
#include "state/variables.hpp"

namespace {


constexpr std::string_view kFinStatX = "fin résultat statx"_fr;
constexpr std::string_view kFinStatXY = "fin résultat statxy"_fr;

// One line of the complete layout.
struct Ligne {
    std::string_view texte;  // words in front of the value
    char lettre;             // variable that holds it
};

constexpr std::string_view kPremiere = "P=nombre de"_fr;
constexpr Ligne kValeurs{"P=nombre de valeurs ="_fr, 'P'};
constexpr Ligne kCouples{"P=nombre de couples ="_fr, 'P'};
constexpr Ligne kEffectif{"N=Effectif total="_fr, 'N'};
constexpr Ligne kLignesX[] = {
    {"S=somme des X= "_fr, 'S'},
    {"V=somme des X²= "_fr, 'V'},
    {"X=moyenne des X= "_fr, 'X'},
    {"E=ecart type de X= "_fr, 'E'},
};
// "de l'origine" and "à l'origine" differ. Kept: see the oddities, origin-words.
constexpr Ligne kLignesXY[] = {
    {"T=somme des Y= "_fr, 'T'},
    {"U=somme des Y²= "_fr, 'U'},
    {"Y=moyenne des Y= "_fr, 'Y'},
    {"F=ecart type de Y= "_fr, 'F'},
    {"W=somme des XY= "_fr, 'W'},
    {"A=coefficient directeur de la droite de régression de Y en X= "_fr, 'A'},
    {"B=ordonnée de l'origine de la droite de régression de Y en X= "_fr, 'B'},
    {"C=coefficient directeur de la droite de régression de X en Y= "_fr, 'C'},
    {"D=ordonnée à l'origine de la droite de régression de X en Y= "_fr, 'D'},
    {"Q=Variance (Carré du coefficient de corrélation)= "_fr, 'Q'},
    {"R=coefficient de corrélation= "_fr, 'R'},
};

// One statement: adds a text to the block, whole or not at all.
void ajoute(const std::string& texte) { resultat_bloc() += texte; }

// Adds a count's line: the value brings its own leading blank.
void ajoute_compte(const Ligne& ligne) {
    Tente(kCalculChaine, [&] {
        ajoute(std::string(ligne.texte).append(forme_blanc(variable(ligne.lettre))) + "\r\n");
    });
}

// Adds lines whose value is shown with the decimals of the settings.
void ajoute_nombres(std::span<const Ligne> lignes) {
    for (const Ligne& ligne : lignes)
        Tente(kCalculChaine, [&] {
            ajoute(std::string(ligne.texte).append(FormatNombre(variable(ligne.lettre))) + "\r\n");
        });
}

// The complete layout: one item a line.
void ajoute_complet(bool couples) {
    ajoute_compte(couples ? kCouples : kValeurs);
    ajoute_compte(kEffectif);
    ajoute_nombres(kLignesX);
    if (couples) ajoute_nombres(kLignesXY);
}

// The restricted layout: one line. No sign stands in front of B but its own minus. Kept: see the oddities,
// no-sign-before-b.
void ajoute_restreint(bool couples) {
    Tente(kCalculChaine, [couples] {
        std::string ligne = "N=" + forme_blanc(variable('N'));
        ligne += ", X= " + FormatNombre(variable('X'));
        if (couples) {
            ligne += ", y= " + FormatNombre(variable('Y'));
            ligne += ", Y= " + FormatNombre(variable('A')) + "X " + FormatNombre(variable('B'));
        } else {
            ligne += ", E= " + FormatNombre(variable('E'));
        }
        ajoute(ligne + "\r\n");
    });
}

}  // namespace

void ajoute_resultats_stat(std::string_view genre) noexcept {
    const bool couples = genre == "STATXY";
    // An earlier data set stays in the block. Kept: see the oddities, second-data-set.
    if (!resultat_bloc().empty()) Tente(kCalculChaine, [] { ajoute("\r\n"); });
    if (reglages.table_ini(kLigneAffichage).champ2 == 1)
        ajoute_restreint(couples);
    else
        ajoute_complet(couples);
    Tente(kCalculChaine, [couples] { resultat_bloc() += couples ? kFinStatXY : kFinStatX; });
    note_statistiques(couples);
}

bool commence_resultats_stat(std::string_view ligne) {
    return ligne.starts_with(kPremiere) ||
           (ligne.starts_with("N=") && ligne.find(", X=") != std::string_view::npos);
}

bool est_fin_resultats_stat(std::string_view ligne) {
    return ligne == kFinStatX || ligne == kFinStatXY;
}

bool est_ligne_resultats_stat(std::string_view ligne) {
    const auto a_la_tete = [ligne](const Ligne& l) { return ligne.starts_with(sans_blancs(l.texte)); };
    return a_la_tete(kEffectif) || std::ranges::any_of(kLignesX, a_la_tete) ||
           std::ranges::any_of(kLignesXY, a_la_tete);
}
