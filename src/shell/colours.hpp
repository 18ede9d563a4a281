// The choice of colours by a list that can be heard. Changes `fenetre`, `couleurs` and row 19 of the
// settings.
#pragma once

#include <cstdint>

struct Couleurs {
    bool choix_premier_plan = false;         // the list waits for the colour of the characters
    bool choix_arriere_plan = false;         // ... of the background
    std::int16_t couleur_premier_plan = 0;   // 0 to 15
    std::int16_t couleur_arriere_plan = 0;
};
extern Couleurs couleurs;

void ouvre_couleurs();                       // shows the list, for the colour of the characters
void ListeCouleur();                         // adds the sixteen lines
int RangCouleur(int position);               // colour of a line of the list; -1 for the prompt
void ValidationCouleurPremierPlan() noexcept;
void ValidationCouleurArrierePlan() noexcept;
bool ValideCouleur();                        // the choice that is waited for; false when none is
void RetourListe();                          // Annuler and Escape
