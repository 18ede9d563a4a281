// The number modes. One instance, `modes`; options, settings and the start change it.
#pragma once

#include <cstdint>

struct Modes {
    std::int16_t mode_nombre = 1;        // 1 decimal, 2 hexadecimal
    std::int16_t mode_affichage = 2;     // 1 Entier, 2 Flottant, 3 Puissance 10
    std::int16_t nombre_decimal = 2;     // decimals shown, 0 to 100; a negative one counts as 0
    std::int16_t unite_angle = 1;        // 1 degree, 2 radian, 3 grade
};
extern Modes modes;
