// The settings table: open and recent documents in rows 1 to 15, settings in rows 16 to 22. One
// instance, `reglages`; options change it, start-up and shut-down read and write its file.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/table.hpp"

struct article {
    std::string nom;             // path of a document, Windows-1252
    std::int32_t champ1 = 0;     // meaning by row, see the rows below
    std::int32_t champ2 = 0;
    std::int32_t champ3 = 0;
};

inline constexpr int kLignesIni = 22;
inline constexpr int kLigneNombres = 16;     // champ1 mode_nombre, champ2 nombre_decimal, champ3 mode_affichage
inline constexpr int kLigneAngle = 17;       // champ1 unite_angle, champ2 last sheet at start-up
inline constexpr int kLigneAffichage = 18;   // champ1 matrices 1 in a column, champ2 statistics 1 restricted

struct Reglages {
    Table<article> table_ini{kLignesIni};    // rows 1 to 22
};
extern Reglages reglages;
