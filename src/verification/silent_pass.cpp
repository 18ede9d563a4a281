// What a pass changes is put aside, and the program's voice with it, until the pass has ended.
#include "verification/silent_pass.hpp"

#include <string_view>
#include <utility>

#include "base/failure.hpp"
#include "platform/boxes.hpp"
#include "platform/message.hpp"
#include "platform/patience.hpp"
#include "platform/platform.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/recalculation.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

namespace {

// The voice of the program says nothing. Escape still ends a long calculation.
Port port_muet() {
    Port muet = port;
    muet.boites.boite = [](std::string_view) {};
    muet.boites.boite_comptee = [](std::string_view) {};
    muet.boites.boite_du_compte = [](std::string_view) {};
    muet.boites.bip = [] {};
    muet.message.etiquette = [](std::string_view) {};
    muet.message.annonce = [](std::string_view) {};
    return muet;
}

// Everything that a pass changes, as it was.
class PasseMuette {
public:
    explicit PasseMuette(Observation* regard) {
        std::swap(feuille_, feuille);
        std::swap(matrices_, matrices);
        std::swap(definition_, definition_de_matrice);
        std::swap(donnees_, statistiques);
        std::swap(message_, ligne_message);
        port = port_muet();
        observation = regard;
    }
    PasseMuette(const PasseMuette&) = delete;
    PasseMuette& operator=(const PasseMuette&) = delete;
    ~PasseMuette() {
        observation = nullptr;
        port = port_;
        signalement = signalement_;
        std::swap(moteur_, moteur);
        std::swap(feuille_, feuille);
        std::swap(matrices_, matrices);
        std::swap(definition_, definition_de_matrice);
        std::swap(donnees_, statistiques);
        std::swap(message_, ligne_message);
        patience = patience_;
        boites_de_passe = boites_;
    }

private:
    Moteur moteur_ = moteur;
    Signalement signalement_ = signalement;
    Feuille feuille_;
    Matrices matrices_;
    DefinitionMatrice definition_;
    Statistiques donnees_;
    LigneMessage message_;
    Port port_ = port;
    Patience patience_ = patience;
    BoitesDePasse boites_ = boites_de_passe;
};

}  // namespace

bool parcourt_en_silence(const std::string& texte, void (*ligne)(const LigneObservee& observee)) {
    Observation regard;
    regard.ligne = ligne;
    regard.poursuit = true;
    const PasseMuette muette(&regard);
    calcule_feuille(texte, 0);
    return !feuille.passe_refusee && !patience.abandonnee;
}
