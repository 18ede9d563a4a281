// Preparing and running the program that is measured, and looking at what it gave.
#include "program.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "base/codepage.hpp"
#include "measure.hpp"
#include "platform/platform.hpp"
#include "shell/calculation.hpp"
#include "shell/reset.hpp"
#include "state/context.hpp"
#include "state/sheet.hpp"
#include "support/memory.hpp"

void prepare_programme(const std::string& texte, std::int16_t unite_angle) {
    installe_port_memoire();
    reinitialise_tout();
    modes.unite_angle = unite_angle;
    port.texte.pose_texte(std::string(texte));
}

void exige_reussite(const std::string& nom) {
    if (!memoire.boites.empty())
        throw std::runtime_error(nom + ": box " + vers_utf8(memoire.boites.front()));
    if (moteur.erreur_formule || feuille.passe_refusee)
        throw std::runtime_error(nom + ": failed, " + vers_utf8(moteur.l_texte_erreur));
}

double temps_passe(const std::string& nom, const std::string& texte, std::int16_t unite_angle) {
    prepare_programme(texte, unite_angle);
    const double debut = temps_processeur();
    recalcul();
    const double secondes = temps_processeur() - debut;
    exige_reussite(nom);
    return secondes;
}

double valeur_de(char lettre) {
    return moteur.valeur_variable[static_cast<std::size_t>(rang_lettre(lettre))];
}

void exige_proche(const std::string& nom, double obtenu, double attendu, double ecart) {
    if (std::fabs(obtenu - attendu) <= ecart * std::max(1.0, std::fabs(attendu))) return;
    throw std::runtime_error(nom + ": " + std::to_string(obtenu) + " instead of " +
                             std::to_string(attendu));
}
