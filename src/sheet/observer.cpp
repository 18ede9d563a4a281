// Who looks on while a pass runs. Changes the record of `moteur` and of the one who looks on.
#include "sheet/observer.hpp"

#include "state/context.hpp"

Observation* observation = nullptr;

void fige_releve() {
    if (observation == nullptr) return;
    moteur.releve = nullptr;
    observation->lue = moteur.p_formule;
    if (observation->lue.ends_with('@')) observation->lue.pop_back();
}

void ouvre_releve() {
    if (observation == nullptr) return;
    moteur.releve = &observation->releve;
    observation->lue.clear();
    observation->groupes.clear();
}
