// Puts the state of the calculation aside and the port's voice to silence, and brings both back.
#include "sheet/aside.hpp"

#include <string>
#include <string_view>
#include <utility>

namespace {

int tues = 0;   // boxes since they were asked for

// What would be told of a calculation that the user hasn't asked for is counted. Escape still ends it.
void tais_le_port() {
    port.message.etiquette = [](std::string_view) {};
    port.message.annonce = [](std::string_view) {};
    port.boites.boite = port.boites.boite_comptee = port.boites.boite_du_compte = [](std::string_view) { ++tues; };
    port.boites.bip = [] {};
    port.boites.son = [](Son) {};
}

}  // namespace

CalculAPart::CalculAPart()
    : moteur_(moteur),
      message_(ligne_message),
      boites_(boites_de_passe),
      feuille_(std::move(feuille)),
      matrices_(std::move(matrices)),
      definition_(std::move(definition_de_matrice)),
      statistiques_(std::move(statistiques)),
      patience_(patience),
      port_boites_(port.boites),
      port_message_(port.message),
      signalement_(signalement),
      crochets_(crochets),
      observation_(observation) {
    feuille = Feuille{};
    matrices = Matrices{};
    definition_de_matrice = DefinitionMatrice{};
    statistiques = Statistiques{};
    patience = Patience{};
    boites_de_passe = BoitesDePasse{};
    tues = 0;
    if (hasard.nombre > 0) moteur.generateur = hasard.debuts.front();
    tais_le_port();
}

CalculAPart::~CalculAPart() {
    moteur = std::move(moteur_);
    feuille = std::move(feuille_);
    matrices = std::move(matrices_);
    definition_de_matrice = std::move(definition_);
    statistiques = std::move(statistiques_);
    ligne_message = std::move(message_);
    patience = patience_;
    boites_de_passe = boites_;
    port.boites = port_boites_;
    port.message = port_message_;
    signalement = signalement_;
    crochets = crochets_;
    observation = observation_;
}

int boites_tues() { return std::exchange(tues, 0); }
