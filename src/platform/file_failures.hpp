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
