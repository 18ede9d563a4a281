// Variables and matrix names. Changes `moteur` one symbol ahead of the grammar, and fills the work
// matrices when a matrix name is read.
#include "engine/identifiers.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "state/matrices.hpp"
#include "state/pass_result.hpp"

namespace {

constexpr Procedure kLisIdentificateur{" sur lis_identificateur"_fr, true};

// True when the formula starts with `tete` and "=": it assigns to that name, wherever the name read
// now stands. A blank in front of the "=" breaks the rule.
bool formule_affecte(char lettre) {
    return moteur.p_formule.size() >= 2 && moteur.p_formule[0] == lettre &&
           moteur.p_formule[1] == '=';
}
bool formule_affecte_matrice(char lettre) {
    return moteur.p_formule.size() >= 3 && moteur.p_formule[0] == 'M' &&
           moteur.p_formule[1] == lettre && moteur.p_formule[2] == '=';
}

std::string non_definie(std::string_view genre, char lettre) {
    std::string texte(genre);
    texte += lettre;
    return texte.append(" non définie"_fr);
}

// The matrix whose name was read goes to the first free work matrix; one that is being defined anew
// empties the first and frees both.
void prend_matrice(std::size_t rang) {
    const char lettre = moteur.l_matrice;
    if (!moteur.matrice_definie[rang]) {
        Tente(kLisIdentificateur, [] { matrices.matrice_travail = TableMatrice(); });
        moteur.flag_travail = false;
        moteur.flag_travail2 = false;
    } else if (moteur.flag_travail) {
        CopieMatriceVersTravail2(lettre);
        moteur.flag_travail2 = true;
    } else {
        CopieMatriceVersTravail(lettre);
        moteur.flag_travail = true;
    }
}

// A symbol of several characters: a matrix name by its first two, or an error.
void lis_nom_matrice() {
    moteur.l_matrice = moteur.l_symbole[1];
    if (moteur.l_symbole[0] != 'M' ||
        !TestCarMatrice(std::string_view(moteur.l_symbole).substr(1, 1))) {
        moteur.l_texte_erreur = "variable non reconnue"_fr;
        affiche_erreur_formule("variable non reconnue"_fr);
        return;
    }
    moteur.l_var = 0;
    const auto rang = static_cast<std::size_t>(rang_lettre(moteur.l_matrice));
    const bool definition = formule_affecte_matrice(moteur.l_matrice);
    if (!definition && !moteur.matrice_definie[rang]) {
        affiche_erreur_formule(non_definie("matrice M"_fr, moteur.l_matrice));
        return;
    }
    moteur.l_valeur = 0;
    if (definition) moteur.matrice_definie[rang] = false;
    prend_matrice(rang);
}

// A variable met in a function's text: the first one is the function's, any further occurrence, of
// the same letter too, is refused. The refusal goes straight after the line, since errors are
// silent during the scan.
bool refuse_seconde_variable() {
    if (moteur.fonction_active <= 0) {
        moteur.fonction_active = moteur.l_var;
        return false;
    }
    std::string texte(" = 2 variables "_fr);
    texte += static_cast<char>('A' + moteur.fonction_active - 1);
    texte += ',';
    texte += moteur.l_symbole[0];
    moteur.l_texte_erreur = texte;
    note_faute_symbole(texte);
    Tente(kLisIdentificateur, [&] { pose_resultat_courant(texte); });
    moteur.erreur_formule = true;
    moteur.definition_fonction_active = false;
    return true;
}

// A single letter: its value, or the report that it has none.
void lis_variable() {
    if (moteur.definition_fonction_active && refuse_seconde_variable()) return;
    const auto rang = static_cast<std::size_t>(moteur.l_var);
    if (moteur.variable_definie[rang] || formule_affecte(moteur.l_symbole[0])) {
        moteur.l_valeur = moteur.valeur_variable[rang];
    } else if (!moteur.definition_fonction_active) {
        affiche_erreur_formule(non_definie("variable "_fr, moteur.l_symbole[0]));
    }
}

// The signs of a formula. Without kSigneProduit there is no implicit product in it.
Signes signes_de_formule(std::string_view formule) {
    Signes signes = 0, avant = 0, produit = 0;
    for (const char c : formule) {
        const Signes ici = kSignes[static_cast<unsigned char>(c)];
        produit |= (avant << 1) & ici;   // kSigneChiffre moves to the place of kSigneLettre
        signes |= ici;
        avant = ici;
    }
    return (produit & kSigneLettre) != 0 ? signes | kSigneProduit : signes;
}

}  // namespace

bool est_mot_operateur(std::string_view symbole) {
    return symbole == "OR" || symbole == "XOR" || symbole == "AND" || symbole == "NOT";
}

void lis_identificateur() noexcept {
    moteur.l_var = static_cast<std::int16_t>(rang_lettre(moteur.l_symbole[0]));
    moteur.l_matrice = ' ';
    if (moteur.l_symbole.size() == 1) {
        Tente(kLisIdentificateur, [] { lis_variable(); });
    } else if (est_mot_operateur(moteur.l_symbole)) {
        moteur.l_var = 0;
    } else {
        Tente(kLisIdentificateur, [] { lis_nom_matrice(); });
    }
}

void razVar() {
    // Slot 0, which nothing reads, is left alone.
    std::fill(moteur.valeur_variable.begin() + 1, moteur.valeur_variable.end(), 0.0);
    std::fill(moteur.variable_definie.begin() + 1, moteur.variable_definie.end(), false);
    efface_resultats();
    moteur.matrice_definie.fill(false);
}

Signes prepare_formule(std::string_view texte) {
    std::string& formule = moteur.p_formule;
    const std::string_view garde = sans_blancs(texte);
    const Signes signes = signes_de_formule(garde);
    if ((signes & kSigneCarre) == 0) {
        formule.assign(garde);
        if ((signes & kSignePetite) != 0) met_en_capitales(formule);
        return signes;
    }
    formule.clear();
    for (const char c : garde) {
        if (c == kCarreEcrit)
            formule += "^2";
        else
            formule += capitale(c);
    }
    return signes | kSigneProduit;   // the 2 may be a figure in front of a letter
}

void TestVariable() {
    std::string& formule = moteur.p_formule;
    if ((signes_de_formule(formule) & kSigneProduit) == 0) return;
    std::string sortie;
    bool dollar = false, chiffre = false;
    std::size_t copie = 0;   // characters of the formula already in the output
    for (std::size_t i = 0; i < formule.size(); ++i) {
        const char c = formule[i];
        if (c == '$') {
            dollar = true;
        } else if (c >= '0' && c <= '9') {
            if (!dollar) chiffre = true;
        } else if (c >= 'A' && c <= 'Z') {
            if (!chiffre) continue;
            chiffre = false;
            sortie.append(formule, copie, i - copie) += '*';
            copie = i;
        } else {
            dollar = chiffre = false;
        }
    }
    if (copie == 0) return;
    sortie.append(formule, copie);
    formule.swap(sortie);
}
