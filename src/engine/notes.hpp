// The notes of what is read: the reader and the grammar write them into the record that `moteur.releve` points
// to (state/reading.hpp). Where it points to nothing, as usual, a note costs one test.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "state/context.hpp"
#include "state/reading.hpp"

// Where the current symbol begins, for a node that is noted when it is complete.
inline std::int32_t place_symbole() { return moteur.releve == nullptr ? 0 : moteur.releve->symbole_debut; }

// The parts that are complete now: what a call reads from here on are its arguments.
inline std::size_t parts_relevees() { return moteur.releve == nullptr ? 0 : moteur.releve->racines.size(); }

// The notes themselves. Memory that runs out ends the record, never the evaluation.
void releve_symbole(std::size_t debut, std::size_t fin) noexcept;
void releve_operande() noexcept;
void releve_remplacement() noexcept;
void releve_noeud(const Noeud& noeud, std::size_t parts) noexcept;
void releve_fin() noexcept;

// The symbol from `debut` on, positions from 1, is the current one.
inline void note_symbole(std::size_t debut, std::size_t fin) {
    if (moteur.releve != nullptr) [[unlikely]] releve_symbole(debut, fin);
}

// The current symbol was put together of several: it begins at `debut`.
inline void note_symbole_joint(std::int32_t debut) {
    if (moteur.releve == nullptr) return;
    moteur.releve->symbole_debut = debut;
    moteur.releve->lu = std::min(moteur.releve->lu, debut - 1);
}

// The current symbol is an operand whose value has been read.
inline void note_operande() {
    if (moteur.releve != nullptr) [[unlikely]] releve_operande();
}

// The symbol behind an operand has been read: it may have taken the operand's place.
inline void note_remplacement() {
    if (moteur.releve != nullptr) [[unlikely]] releve_remplacement();
}

// An operation is complete; its children are the last `arite` parts.
inline void note_operation(GenreNoeud genre, int arite, std::int32_t signe, double valeur,
                           SorteCalcul sorte = SorteCalcul::nombres, int numero = 0) {
    if (moteur.releve != nullptr) [[unlikely]]
        releve_noeud({.genre = genre, .sorte = sorte, .numero = static_cast<std::int16_t>(numero), .arite = arite,
                      .signe = signe, .valeur = valeur},
                     moteur.releve->racines.size() - static_cast<std::size_t>(arite));
}

// A call is complete: its arguments are the parts since `parts`, its name begins at `debut`.
void note_appel(int fonction, std::int32_t debut, std::int32_t parenthese, std::size_t parts, double valeur);

// Something happened that asks for a second look.
inline void note_trait(TraitLecture trait) {
    if (moteur.releve != nullptr) [[unlikely]] moteur.releve->traits |= trait;
}

// A value that the formula had in hand is no longer what it was.
void note_perte(TraitLecture trait, double avant, double apres) noexcept;
