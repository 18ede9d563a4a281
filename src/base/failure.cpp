// Raising a failure and showing its box. Changes `signalement` at the start alone, and takes the
// reserve of memory again after a failure for want of it.
#include "base/failure.hpp"

#include <string>

#include "base/memory_reserve.hpp"

Signalement signalement;

void echoue(int numero) { throw Defaillance{numero}; }

void signale_defaillance(const Procedure& procedure, int numero) noexcept {
    // The user's own wish needs no number, and marks the formula in any procedure.
    if (numero == kAbandon) {
        signalement.abandon();
        return signalement.marque_formule();
    }
    const std::string n = std::to_string(numero);
    std::string texte = procedure.numero_seul ? " " + n : n + " " + n;
    signalement.boite(texte.append(procedure.mots));
    if (procedure.marque_erreur) signalement.marque_formule();
    if (numero == kMemoire) reprend_reserve();
}

#ifdef VOXTAB_INJECTION
Injection injection;

void compte_instruction() {
    if (++injection.compte == injection.echec_a) echoue(kDepassement);
}
#endif
