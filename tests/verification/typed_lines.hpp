// Random lines as somebody types them, and what is typed wrong. Hold no state.
#pragma once

#include <cstdint>
#include <string>

#include "property/choice.hpp"

struct Essai {
    std::string entete;   // lines above
    int lignes = 0;
    std::string ligne;
};

// What is typed wrong: one character more, less or other, a piece twice, a blank.
std::string abime(Tirage& t, std::string ligne);

// A line as somebody types it, below a few letters that have values.
Essai tire_essai(std::uint64_t graine);
