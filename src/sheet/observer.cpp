// Who looks on while a pass runs. Changes the record of `moteur` and of the one who looks on.
#include "sheet/observer.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "engine/reading.hpp"
#include "state/context.hpp"

Observation* observation = nullptr;

namespace {

// The variable that p_formule gives a value to in its first two characters; 0 for none.
int variable_affectee() {
    const std::string& formule = moteur.p_formule;
    return formule.size() > 1 && formule[1] == '=' ? rang_lettre(formule[0]) : 0;
}

// True when the formula was read to its end mark without an error.
bool lue_jusqu_au_bout() {
    return !moteur.erreur_formule && static_cast<std::size_t>(moteur.debut_symbole) == moteur.p_formule.size();
}

// The formula as the engine had it.
std::string_view sans_marque_de_fin() {
    std::string_view formule = moteur.p_formule;
    if (formule.ends_with('@')) formule.remove_suffix(1);
    return formule;
}

// Takes the record that was left out: the formula is read again with what its variable had before.
void relit() {
    const auto rang = static_cast<std::size_t>(variable_affectee());
    const auto echange = [&] {
        std::swap(moteur.valeur_variable[rang], observation->valeur_avant);
        const bool definie = moteur.variable_definie[rang];
        moteur.variable_definie[rang] = observation->definie_avant;
        observation->definie_avant = definie;
    };
    echange();
    try {
        FormuleRelevee lue = lit_formule(sans_marque_de_fin());
        std::swap(observation->releve, lue.releve);
        observation->lue = std::move(lue.formule);
    } catch (...) {   // without memory nothing is told of the formula
        observation->lue.clear();
    }
    echange();
}

}  // namespace

void allege_releve() {
    if (observation == nullptr || observation->sans_interet == nullptr) return;
    if (!observation->sans_interet(moteur.p_formule)) return;
    const int rang = variable_affectee();
    observation->releve.affectee = static_cast<std::int16_t>(rang);
    observation->valeur_avant = moteur.valeur_variable[static_cast<std::size_t>(rang)];
    observation->definie_avant = moteur.variable_definie[static_cast<std::size_t>(rang)];
    observation->sans_releve = true;
    moteur.releve = nullptr;
}

void fige_releve() {
    if (observation == nullptr) return;
    moteur.releve = nullptr;
    if (!observation->sans_releve)
        observation->lue = sans_marque_de_fin();
    else if (!lue_jusqu_au_bout())
        relit();
}

void ouvre_releve() {
    if (observation == nullptr) return;
    moteur.releve = &observation->releve;
    observation->sans_releve = false;
    observation->lue.clear();
    observation->groupes.clear();
}
