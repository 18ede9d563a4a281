// The notes of data that a calculation goes through. Change the record that `notees` points to.
#include "state/noted_data.hpp"

DonneesNotees* notees = nullptr;

namespace {

// Adds to one of the lists of the record; without memory the record isn't whole.
template <class Liste, class Element>
void ajoute(Liste& liste, const Element& element) noexcept {
    try {
        liste.push_back(element);
    } catch (...) {
        notees->perdue = true;
    }
}

}  // namespace

void note_debut_de_groupes(bool couples) noexcept {
    if (notees == nullptr) return;
    notees->groupes.clear();
    notees->couples = couples;
}

void note_groupe(double x, double y, double effectif) noexcept {
    if (notees != nullptr) ajoute(notees->groupes, GroupeNote{x, y, effectif});
}

void note_intervalle(int variable, double debut, double fin, bool aire) noexcept {
    if (notees == nullptr) return;
    notees->rangees.clear();
    notees->variable = variable;
    notees->debut = debut;
    notees->fin = fin;
    notees->aire = aire;
}

void note_rangee(double x, double y) noexcept {
    if (notees != nullptr) ajoute(notees->rangees, RangeeNotee{x, y});
}
