// The boxes of a calculation: a pass shows at most three, counts the others and tells them in one at its
// end. Changes `boites_de_passe`.
#pragma once

#include <string>
#include <string_view>

struct BoitesDePasse {
    bool ouverte = false;   // a pass runs
    int montrees = 0;       // boxes that it has shown
    int comptees = 0;       // boxes that it has only counted
    std::string derniere;   // text of the last one of either kind, kept until the next pass; "" without memory for it
};
extern BoitesDePasse boites_de_passe;

// Shows the box, or counts it when the pass that runs has shown enough.
void montre_boite(std::string_view texte);

void ouvre_boites();   // a pass begins
void ferme_boites();   // it ends: one box tells how many were counted
