// What formulas leave, for who reads none: the variables, and whether the last formula failed. It stands
// in the calculation context (state/context.hpp), with all that is needed to read one.
#pragma once

#include <cstddef>
#include <string>

// Number of a letter: 1 for "A" to 26 for "Z"; other characters give other numbers.
inline int rang_lettre(char c) { return static_cast<unsigned char>(c) - 'A' + 1; }

// The value of a letter's variable, A to Z, whether it has one or not.
double& variable(char lettre);

// Variable number `rang`, 1 to 26: its value, and whether it has one in this pass.
double valeur_variable(std::size_t rang);
bool variable_definie(std::size_t rang);

// Gives variable number `rang`, 1 to 26, a value in this pass.
void definit_variable(std::size_t rang, double valeur);

// The formula that is read, Windows-1252 capitals.
std::string& formule_lue();

// Pi, as the start has set it.
double pi_valeur();

// Whether an error or a failure marked the last evaluation.
bool formule_en_erreur();

// What the start sets: pi, four times the arc tangent of 1, and the seed of the random numbers.
void pose_pi(double pi);
void seme_generateur();

// Notes that the sheet shows what the last pass has drawn at random.
void garde_le_hasard();

// Puts the context and the modes back to their initial values, seeds the random generator, and has failures
// told by boxes and marked in the formula.
void reinitialise_moteur();
