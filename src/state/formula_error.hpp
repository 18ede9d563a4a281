// The report of an error of the formula that is being read. Changes `moteur` and says the words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"

// Reports an error of the formula: marks it, says it, and makes "0" the current symbol so that the
// reader's loops end by themselves. Silent while a function's text is scanned; without words while
// muet_erreur is set.
void affiche_erreur_formule(std::string_view texte) noexcept;

// The same for a value that can't be computed: the fault is the part that was computed last (debut_calcul),
// not the symbol behind it.
void affiche_erreur_calcul(std::string_view texte) noexcept;

// Said of a failed line that nothing has put into words.
inline constexpr std::string_view kChaineAmbigue = "Chaine ambigue"_fr;

// Forgets the first fault: a line of the sheet begins.
void oublie_faute() noexcept;

// Notes the words of a fault, if it is the first, at the part that was computed last.
void note_faute_calcul(std::string_view mots) noexcept;

// The same at the current symbol.
void note_faute_symbole(std::string_view mots) noexcept;

// Notes the words of a fault, if it is the first, at one character of a formula that isn't read, from 1.
void note_faute_caractere(std::string_view mots, std::string_view formule, std::int16_t colonne) noexcept;

// Notes the words of a fault, if it is the first, of a whole line of the sheet; 0: the one in calculation.
void note_faute_ligne(std::string_view mots, std::int16_t ligne = 0) noexcept;

// Tells of the fault just noted that it lies in that line, behind so many characters.
void place_faute(std::int16_t ligne, std::size_t decalage) noexcept;

// Shows a fault of the user function's text at the call that was being computed.
void place_faute_a_l_appel() noexcept;

// Notes the words of an error without saying them.
void note_texte_erreur(std::string texte) noexcept;

// Notes for the record of the reading that a matrix was to be inverted that has no inverse.
void note_sans_inverse() noexcept;

// Marks the formula as failed by a failure of the arithmetic: the box that was shown is the words of its fault.
void marque_defaillance() noexcept;

// Marks the formula as failed.
void marque_erreur_formule() noexcept;
