// A formula is evaluated for the record of its reading; all that the evaluation changes is put back.
#include "engine/reading.hpp"

#include <algorithm>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "platform/hooks.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"

namespace {

// What an evaluation changes, put back at the end. The matrices are copied by who reads them first.
class ContexteGarde {
public:
    ContexteGarde() : moteur_(moteur), signalement_(signalement), crochets_(crochets) {
        signalement.boite = [](std::string_view) {};
        signalement.abandon = [] {};
        crochets.donnees_triees = [] {};
    }
    ContexteGarde(const ContexteGarde&) = delete;
    ContexteGarde& operator=(const ContexteGarde&) = delete;
    ~ContexteGarde() {
        std::swap(moteur, moteur_);
        signalement = signalement_;
        crochets = crochets_;
        if (matrices_gardees_) std::swap(matrices, matrices_);
        if (donnees_gardees_) std::swap(statistiques, donnees_);
    }

    // A formula without a name of a matrix leaves the matrices alone, one without STATX the data set; the user
    // function may have either.
    void garde_tables(std::string_view formule) {
        const bool fonction = formule.find("FON") != std::string_view::npos;
        matrices_gardees_ = fonction || formule.find('M') != std::string_view::npos;
        if (matrices_gardees_) matrices_ = matrices;
        donnees_gardees_ = fonction || formule.find("STATX") != std::string_view::npos;
        if (donnees_gardees_) donnees_ = statistiques;
    }

private:
    Moteur moteur_;
    Signalement signalement_;
    Crochets crochets_;
    Matrices matrices_;
    Statistiques donnees_;
    bool matrices_gardees_ = false;
    bool donnees_gardees_ = false;
};

}  // namespace

FormuleRelevee lit_formule(std::string_view texte, Preparation preparation) {
    FormuleRelevee lue;
    ContexteGarde garde;
    prepare_formule(texte);
    if (preparation == Preparation::ordinaire) TestVariable();
    lue.formule = moteur.p_formule;
    garde.garde_tables(lue.formule);
    moteur.muet_erreur = true;
    moteur.definition_fonction_active = false;
    moteur.releve = &lue.releve;
    lue.valeur = evalue_formule();
    lue.erreur = moteur.erreur_formule;
    return lue;
}

std::vector<std::size_t> places_dans_le_texte(std::string_view texte, std::string_view formule) {
    std::vector<std::size_t> places;
    places.reserve(formule.size() + 1);
    std::size_t i = 0;
    for (std::size_t j = 0; j < formule.size(); ++j) {
        places.push_back(std::min(i, texte.size()));
        if (i >= texte.size()) continue;
        if (texte[i] == kCarreEcrit) {
            if (formule[j] == '2') ++i;
        } else if (capitale(texte[i]) == formule[j]) {
            ++i;   // any other character was put in
        }
    }
    places.push_back(std::min(i, texte.size()));
    return places;
}

std::string_view texte_utile(std::string_view formule, const Noeud& noeud) {
    return formule.substr(static_cast<std::size_t>(noeud.debut - 1),
                          static_cast<std::size_t>(noeud.utile - noeud.debut + 1));
}
