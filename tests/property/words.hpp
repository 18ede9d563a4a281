// Sheets of words thrown together, right or wrong.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "property/sheets.hpp"

struct Soupe {
    Reglage reglage;
    std::string texte;  // Windows-1252, CR LF
    std::size_t curseur = 0;
};

// The sheet of a seed.
Soupe tire_soupe(std::uint64_t graine);

// Runs `nombre` of them; the number of those that are wrong.
int essaie_soupes(int nombre);
