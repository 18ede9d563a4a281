// The program under measurement: a fresh one over the in-memory port for each repetition, so that a
// pass pays for all its tables. Changes every subsystem of the core.
#pragma once

#include <cstdint>
#include <string>

inline constexpr std::int16_t kDegre = 1;  // values of unite_angle
inline constexpr std::int16_t kRadian = 2;

// A fresh program with this sheet in it.
void prepare_programme(const std::string& texte, std::int16_t unite_angle = kDegre);

// Refuses, with an exception that holds the first words told, a pass in which a line failed or a
// box appeared: what failed is not timed.
void exige_reussite(const std::string& nom);

// Prepares a fresh program, calculates the sheet and answers the processor seconds of the
// calculation alone. Refuses a sheet that fails.
double temps_passe(const std::string& nom, const std::string& texte,
                   std::int16_t unite_angle = kDegre);

// Value of a variable after the pass, by its letter.
double valeur_de(char lettre);

// Refuses `obtenu` when it differs from `attendu` by more than `ecart`, relative for large values.
void exige_proche(const std::string& nom, double obtenu, double attendu, double ecart = 1e-9);
