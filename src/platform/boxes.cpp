// The boxes of a calculation. A sheet can fail in thousands of places of one line, and each box waits for
// a key: after the third nobody could get out.
#include "platform/boxes.hpp"

#include <string>

#include "base/codepage.hpp"
#include "platform/platform.hpp"

BoitesDePasse boites_de_passe;

namespace {

constexpr int kBoitesMontrees = 3;

void retient(std::string_view texte) noexcept {
    try {
        boites_de_passe.derniere = texte;
    } catch (...) {
        boites_de_passe.derniere.clear();
    }
}

}  // namespace

void montre_boite(std::string_view texte) {
    BoitesDePasse& b = boites_de_passe;
    retient(texte);
    if (!b.ouverte || b.montrees < kBoitesMontrees) {
        if (b.ouverte) ++b.montrees;
        port.boites.boite(texte);
        return;
    }
    ++b.comptees;
    port.boites.boite_comptee(texte);
}

void ouvre_boites() { boites_de_passe = BoitesDePasse{true, 0, 0, ""}; }

void ferme_boites() {
    const int comptees = boites_de_passe.comptees;
    boites_de_passe.ouverte = false;
    boites_de_passe.montrees = boites_de_passe.comptees = 0;
    if (comptees == 0) return;
    port.boites.boite_du_compte(("et " + std::to_string(comptees)).append(" autres échecs"_fr));
}
