// Raising a failure and showing its box. Sets erreur_formule for the procedures that mark it, and takes the
// reserve of memory again behind a failure for want of it.
#include "base/failure.hpp"

#include <string>
#include <utility>

#include "base/codepage.hpp"
#include "base/memory_reserve.hpp"
#include "platform/boxes.hpp"
#include "platform/patience.hpp"
#include "state/context.hpp"

void echoue(int numero) { throw Defaillance{numero}; }

namespace {

// The user's own wish needs no number, and is told by the first procedure that meets it.
void signale_abandon() noexcept {
    if (!std::exchange(patience.dite, true)) montre_boite("calcul interrompu"_fr);
    moteur.erreur_formule = true;
}

}  // namespace

void signale_defaillance(const Procedure& procedure, int numero) noexcept {
    if (numero == kAbandon) return signale_abandon();
    const std::string n = std::to_string(numero);
    std::string texte = procedure.numero_seul ? " " + n : n + " " + n;
    montre_boite(texte.append(procedure.mots));
    if (procedure.marque_erreur) moteur.erreur_formule = true;
    if (numero == kMemoire) reprend_reserve();
}

#ifdef VOXTAB_INJECTION
Injection injection;

void compte_instruction() {
    if (++injection.compte == injection.echec_a) echoue(kDepassement);
}
#endif
