// The instances of the calculation context and of the number modes, and their return to the start, with
// which failures find their way to them.
#include "state/context.hpp"

#include <algorithm>

#include "base/failure.hpp"
#include "platform/boxes.hpp"
#include "platform/patience.hpp"
#include "platform/platform.hpp"

Moteur moteur;
Modes modes;
Hasard hasard;

double& variable(char lettre) { return moteur.valeur_variable[static_cast<std::size_t>(rang_lettre(lettre))]; }

double valeur_variable(std::size_t rang) { return moteur.valeur_variable[rang]; }

bool variable_definie(std::size_t rang) { return moteur.variable_definie[rang]; }

void definit_variable(std::size_t rang, double valeur) {
    moteur.valeur_variable[rang] = valeur;
    moteur.variable_definie[rang] = true;
}

std::string& formule_lue() { return moteur.p_formule; }

double pi_valeur() { return moteur.pi_valeur; }

bool formule_en_erreur() { return moteur.erreur_formule; }

void pose_pi(double pi) { moteur.pi_valeur = pi; }

void seme_generateur() { moteur.generateur.seed(port.systeme.graine()); }

double tire_au_hasard() {
    if (!moteur.debut_hasard) moteur.debut_hasard = moteur.generateur;
    ++hasard.tirages;
    return static_cast<double>(moteur.generateur() >> 11) * 0x1p-53;
}

void garde_le_hasard() {
    if (!moteur.debut_hasard) return;
    std::copy_backward(hasard.debuts.begin(), hasard.debuts.end() - 1, hasard.debuts.end());
    hasard.debuts.front() = *moteur.debut_hasard;
    hasard.nombre = std::min(hasard.nombre + 1, hasard.debuts.size());
}

void reinitialise_moteur() {
    signalement = {montre_boite, dit_abandon, [] { moteur.erreur_formule = true; }};
    moteur = Moteur{};
    modes = Modes{};
    hasard.nombre = 0;
    seme_generateur();
}
