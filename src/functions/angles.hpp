// Angles in the unit of `modes` and in radians. Hold no state.
#pragma once

#include "state/context.hpp"

// Half a turn in the unit of angles; radians are not converted.
inline double demi_tour() { return modes.unite_angle == 1 ? 180 : 200; }
inline bool en_radians() { return modes.unite_angle == 2; }

// Angle unit to radians and back, as plain arithmetic.
inline double vers_radians(double x) {
    return en_radians() ? x : x * moteur.pi_valeur / demi_tour();
}
inline double depuis_radians(double x) {
    return en_radians() ? x : x * demi_tour() / moteur.pi_valeur;
}

// The same, each with its report.
double conv_a_r(double x) noexcept;   // angle unit to radians
double conv_r_a(double x) noexcept;   // radians to angle unit
