// Failures of the documents: file operations that answer a number, and statements whose failure is
// told in the procedure's own way or not at all. Holds no state.
#pragma once

#include <utility>

#include "base/failure.hpp"

inline constexpr int kAnnulation = 32755;  // a dialog that reports Cancel as a failure
inline constexpr int kDejaDit = -1;        // a failure whose box has been shown

// Raises the failure of a file operation, the number that it answered; 0 is none.
inline void reussit(int numero) {
    if (numero != 0) echoue(numero);
}

// Runs one statement; its failure goes to `rapport` as a number, and the procedure goes on with its
// next statement. True when the statement ran to its end.
template <class Instruction, class Rapport>
inline bool Essaie(Instruction&& instruction, Rapport&& rapport) noexcept {
    try {
#ifdef VOXTAB_INJECTION
        compte_instruction();
#endif
        std::forward<Instruction>(instruction)();
        return true;
    } catch (const Defaillance& d) {
        rapport(d.numero);
    } catch (...) {
        rapport(kMemoire);
    }
    return false;
}

// Runs a statement that must happen whole or not at all. When it fails `remet` puts back what it has
// changed, then the failure goes up.
template <class Instruction, class Remise>
inline void execute_ou_remet(Instruction&& instruction, Remise&& remet) {
    int echec = 0;
    if (Essaie(std::forward<Instruction>(instruction), [&](int numero) { echec = numero; })) return;
    remet();
    echoue(echec);
}

// Runs one statement whose failure passes without a word.
template <class Instruction>
inline bool EssaieEnSilence(Instruction&& instruction) noexcept {
    return Essaie(std::forward<Instruction>(instruction), [](int) {});
}
