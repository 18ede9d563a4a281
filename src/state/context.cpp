// The instances of the calculation context and of the number modes, and their return to the start.
#include "state/context.hpp"

#include "platform/platform.hpp"

Moteur moteur;
Modes modes;

void reinitialise_moteur() {
    moteur = Moteur{};
    modes = Modes{};
    moteur.generateur.seed(port.systeme.graine());
}
