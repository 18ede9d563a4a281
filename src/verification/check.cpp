// A check runs the pass on a copy of everything that it changes; a watched pass is the user's own. Changes
// `verification`.
#include "verification/check.hpp"

#include <algorithm>
#include <utility>

#include "base/failure.hpp"
#include "sheet/observer.hpp"
#include "state/context.hpp"
#include "state/pass_result.hpp"
#include "verification/judge.hpp"
#include "verification/plain_formula.hpp"
#include "verification/silent_pass.hpp"

Verification verification;

namespace {

Jugement jugement;
Observation regard;   // at the user's own pass

// A line of the pass; what memory doesn't hold is not found.
void prend_ligne(const LigneObservee& o) {
    if (o.erreur) ++verification.lignes_en_erreur;
    juge_ligne(jugement, o);
}

// What was collected is what was found.
void acheve() {
    acheve_jugement(jugement);
    verification.constats = std::move(jugement.constats);
    jugement = {};
}

}  // namespace

void verifie_feuille(const std::string& texte) noexcept {
    verification = {};
    Tente(kCommande, [&] {
        jugement = {};
        verification.arretee = !parcourt_en_silence(texte, prend_ligne);
        acheve();
    });
}

void commence_surveillance() noexcept {
    verification = {};
    jugement = {};
    jugement.lettres_notees = false;
    regard.ligne = prend_ligne;
    regard.sans_interet = est_formule_simple;
    observation = &regard;
}

void finit_surveillance() noexcept {
    observation = nullptr;
    moteur.releve = nullptr;
    Tente(kRecalcul, [] { acheve(); });
    std::erase_if(verification.constats, [](const Constat& c) { return gravite(c.genre) != Gravite::faux_probable; });
}

std::size_t faux_probables(const std::vector<Constat>& constats) {
    return static_cast<std::size_t>(std::ranges::count_if(
        constats, [](const Constat& c) { return gravite(c.genre) == Gravite::faux_probable; }));
}
