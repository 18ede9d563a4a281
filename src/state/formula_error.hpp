// The report of an error of the formula that is being read. Changes `moteur` and says the words.
#pragma once

#include <string>
#include <string_view>

// Reports an error of the formula: marks it, says it, and makes "0" the current symbol so that the
// reader's loops end by themselves. Silent while a function's text is scanned; without words while
// muet_erreur is set.
void affiche_erreur_formule(std::string_view texte) noexcept;

// Notes the words of an error without saying them.
void note_texte_erreur(std::string texte) noexcept;

// Marks the formula as failed.
void marque_erreur_formule() noexcept;
