// The instances of the calculation context and of the number modes, and their return to the start, with
// which failures find their way to them.
#include "state/context.hpp"

#include "base/failure.hpp"
#include "platform/boxes.hpp"
#include "platform/patience.hpp"
#include "platform/platform.hpp"

Moteur moteur;
Modes modes;

void reinitialise_moteur() {
    signalement = {montre_boite, dit_abandon, [] { moteur.erreur_formule = true; }};
    moteur = Moteur{};
    modes = Modes{};
    moteur.generateur.seed(port.systeme.graine());
}
