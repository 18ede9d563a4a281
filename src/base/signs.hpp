// What signs a text has in it, gathered in one walk: a set that tells at once what needs no search. Holds no
// state.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/codepage.hpp"

// One bit a letter A to Z, capital or small alike, and one for each of the signs below.
using Signes = std::uint64_t;

inline constexpr Signes kSigneEgal = Signes{1} << 26, kSigneVirgule = Signes{1} << 27,
                        kSigneExclamation = Signes{1} << 28, kSigneCarre = Signes{1} << 29,
                        kSignePetite = Signes{1} << 30,     // any letter that has a capital
                        kSigneControle = Signes{1} << 31,   // a code below 32
                        kSigneChiffre = Signes{1} << 32,    // a figure, or a "$" that may stand in front of figures
                        kSigneLettre = kSigneChiffre << 1,  // any letter A to Z, capital or small
                        kSigneProduit = Signes{1} << 34;    // of a formula: that letter right behind that figure

// Bit of a letter; 0 for what is no letter A to Z.
constexpr Signes bit_lettre(char c) {
    const unsigned rang = (static_cast<unsigned char>(c) | 0x20u) - 'a';
    return rang < 26 ? Signes{1} << rang : 0;
}

// All bits of a character.
constexpr Signes bits_signe(char c) {
    Signes signes = bit_lettre(c);
    if (signes != 0) signes |= kSigneLettre;
    if (est_chiffre(c) || c == '$') signes |= kSigneChiffre;
    if (c == '=') signes |= kSigneEgal;
    if (c == ',') signes |= kSigneVirgule;
    if (c == '!') signes |= kSigneExclamation;
    if (c == kCarreEcrit) signes |= kSigneCarre;
    if (capitale(c) != c) signes |= kSignePetite;
    if (static_cast<unsigned char>(c) < 32) signes |= kSigneControle;
    return signes;
}

inline constexpr auto kSignes = [] {
    std::array<Signes, 256> t{};
    for (std::size_t c = 0; c < t.size(); ++c) t[c] = bits_signe(static_cast<char>(c));
    return t;
}();

// The signs of a text.
constexpr Signes signes_de(std::string_view texte) {
    Signes signes = 0;
    for (const char c : texte) signes |= kSignes[static_cast<unsigned char>(c)];
    return signes;
}
