// Random lines as somebody types them, what is typed wrong, and how many are tried. Hold no state.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "property/choice.hpp"

struct Essai {
    std::string entete;   // lines above
    int lignes = 0;
    std::string ligne;
};

// How much is tried, and from which seed on.
struct Tours {
    int lignes = 20000, feuilles = 5000;
    std::uint64_t graine = 1;
};
Tours lis_tours(int argc, char** argv);   // --lignes N, --feuilles N, --graine S

// Tries the lines, then the sheets, each by its seed, in a fresh program; how many have failed. A few are enough.
int compte_fautes(const Tours& tours, const std::function<bool(std::uint64_t)>& essaie_ligne,
                  const std::function<bool(std::uint64_t)>& essaie_feuille);

// What is typed wrong: one character more, less or other, a piece twice, a blank.
std::string abime(Tirage& t, std::string ligne);

// A line as somebody types it, below a few letters that have values.
Essai tire_essai(std::uint64_t graine);
