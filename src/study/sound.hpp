// Curves as sound, made of samples without any device: pitch for the value, left to right for x. Hold no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "study/curve.hpp"

inline constexpr int kCadence = 44100;           // frames a second
inline constexpr double kGrave = 200;            // hertz of the lowest value
inline constexpr double kAigu = 1500;            // of the highest
inline constexpr double kTicZero = 5000;         // hertz of the ticks
inline constexpr double kTicExtreme = 6200;
inline constexpr double kTicUnite = 7500;

// Samples from -32768 to 32767, left and right in turn.
using Echantillons = std::vector<std::int16_t>;

// How a curve is played.
struct Jeu {
    double duree = 3;                            // seconds from the left end to the right end
    double attente = 0;                          // silence in front, while the words are said
    bool repere = true;                          // the reference tone first
};

// Pitch of a value, in hertz: even steps of the value are even steps of the ear.
double hauteur(const CourbeEntendue& courbe, double y);

// Seconds from the beginning of the sound to the left end of the curve.
double debut_de_courbe(const Jeu& jeu);

// The whole curve.
Echantillons joue_courbe(const CourbeEntendue& courbe, const Jeu& jeu);

// One point of it, `place` from 0 to 1: its pitch, or noise, with the ticks that lie within half a step beside it.
Echantillons joue_point(const CourbeEntendue& courbe, double place, double y, double pas);

// Puts a sound behind another, with a pause between them.
void enchaine(Echantillons& tout, const Echantillons& autre);

// A sound file of these samples.
std::string fichier_wav(const Echantillons& echantillons);
