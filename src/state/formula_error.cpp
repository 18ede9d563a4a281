// The report of an error of a formula. Changes `moteur`, and `ligne_message` through what is said.
#include "state/formula_error.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/boxes.hpp"
#include "platform/message.hpp"
#include "state/context.hpp"
#include "state/reading.hpp"

namespace {

// Notes the first fault, with the part of the formula from `debut` to in front of `fin`.
void retient_faute(std::string_view mots, std::int16_t debut, std::int16_t fin) noexcept {
    PremiereFaute& faute = moteur.faute;
    if (faute.notee || moteur.muet_erreur) return;
    faute.notee = true;
    faute.debut = debut;
    faute.fin = fin;
    try {
        faute.mots = mots;
        if (debut > 0) faute.formule = moteur.p_formule.substr(0, moteur.p_formule.rfind('@'));
    } catch (...) {
        faute.debut = 0;   // without memory the line alone is known
    }
}

// True when the part that is computed has a bracket that the current symbol closes: the reader is one symbol
// ahead.
bool partie_ouverte() noexcept {
    const std::size_t debut = static_cast<std::size_t>(std::max<std::int16_t>(moteur.debut_calcul, 1)) - 1;
    const std::size_t fin = static_cast<std::size_t>(moteur.debut_symbole) - 1;
    int ouvertes = 0;
    for (std::size_t i = debut; i < std::min(fin, moteur.p_formule.size()); ++i)
        ouvertes += moteur.p_formule[i] == '(' ? 1 : moteur.p_formule[i] == ')' ? -1 : 0;
    return ouvertes > 0;
}

// Says the words of an error, and makes "0" the current symbol.
void affiche(std::string_view texte) noexcept {
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
        moteur.l_symbole.vide();
    }
}

}  // namespace

void affiche_erreur_formule(std::string_view texte) noexcept {
    if (moteur.definition_fonction_active) return;
    note_faute_symbole(texte);
    affiche(texte);
}

void affiche_erreur_calcul(std::string_view texte) noexcept {
    if (moteur.definition_fonction_active) return;
    note_faute_calcul(texte);
    affiche(texte);
}

void oublie_faute() noexcept {
    if (moteur.faute.notee) moteur.faute = PremiereFaute{};
}

// Between two formulas there is no symbol: the line alone is at fault.
void note_faute_symbole(std::string_view mots) noexcept {
    retient_faute(mots, moteur.debut_calcul == 0 ? std::int16_t{0} : moteur.debut_symbole, moteur.p_position);
}

void note_faute_calcul(std::string_view mots) noexcept {
    const bool appel_ouvert = moteur.l_symbole == ")" && partie_ouverte();
    retient_faute(mots, moteur.debut_calcul, appel_ouvert ? moteur.p_position : moteur.debut_symbole);
}

void note_faute_ligne(std::string_view mots, std::int16_t ligne) noexcept {
    PremiereFaute& faute = moteur.faute;
    if (faute.notee) return;
    faute.notee = true;
    faute.ligne = ligne;
    try {
        faute.mots = mots;
    } catch (...) {
        faute.mots.clear();
    }
}

void note_faute_caractere(std::string_view mots, std::string_view formule, std::int16_t colonne) noexcept {
    if (moteur.faute.notee) return;
    note_faute_ligne(mots);
    try {
        moteur.faute.formule = formule;
    } catch (...) {
        return;
    }
    moteur.faute.debut = colonne;
    moteur.faute.fin = static_cast<std::int16_t>(colonne + 1);
}

void place_faute(std::int16_t ligne, std::size_t decalage) noexcept {
    moteur.faute.ligne = ligne;
    moteur.faute.decalage = decalage;
}

void place_faute_a_l_appel() noexcept {
    PremiereFaute& faute = moteur.faute;
    if (!faute.notee) return;
    faute.notee = false;
    const std::string mots = std::move(faute.mots);
    note_faute_calcul(mots);
}

void note_texte_erreur(std::string texte) noexcept { moteur.l_texte_erreur = std::move(texte); }

void note_sans_inverse() noexcept {
    if (moteur.releve != nullptr) moteur.releve->traits |= kTraitSansInverse;
}

void marque_defaillance() noexcept {
    moteur.erreur_formule = true;
    note_faute_calcul(boites_de_passe.derniere);
}

void marque_erreur_formule() noexcept { moteur.erreur_formule = true; }
