// The report of an error of a formula. Changes `moteur`, and `ligne_message` through what is said.
#include "state/formula_error.hpp"

#include <string>
#include <utility>

#include "platform/message.hpp"
#include "state/context.hpp"
#include "state/reading.hpp"

void affiche_erreur_formule(std::string_view texte) noexcept {
    if (moteur.definition_fonction_active) return;
    moteur.erreur_formule = true;
    if (moteur.releve != nullptr) note_faute(*moteur.releve, texte);
    try {
        const std::string copie(texte);   // the text may stand in l_symbole, which is about to go
        moteur.l_symbole = "0";
        moteur.l_valeur = 0;
        moteur.l_var = 0;
        moteur.l_matrice = ' ';
        if (moteur.muet_erreur) return;
        moteur.l_texte_erreur = copie;
        dit(copie);
    } catch (...) {
        // Without memory for the words, the flag stands and the sheet calls the line ambiguous.
        moteur.l_symbole.clear();
    }
}

void note_texte_erreur(std::string texte) noexcept { moteur.l_texte_erreur = std::move(texte); }

void marque_erreur_formule() noexcept { moteur.erreur_formule = true; }
