// The words that tell a line's form (FIN, INC, STATX...), found quickly: a set of the letters of a
// text rules most of them out before any search. Holds no state.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// One bit a letter, capital or small alike.
using Lettres = std::uint32_t;

// Bit of a character; 0 for what is no letter A to Z.
constexpr Lettres bit_lettre(char c) {
    const unsigned rang = (static_cast<unsigned char>(c) | 0x20u) - 'a';
    return rang < 26 ? Lettres{1} << rang : 0;
}

inline constexpr auto kBitsLettres = [] {
    std::array<Lettres, 256> t{};
    for (std::size_t c = 0; c < t.size(); ++c) t[c] = bit_lettre(static_cast<char>(c));
    return t;
}();

constexpr Lettres lettres_de(std::string_view texte) {
    Lettres lettres = 0;
    for (const char c : texte) lettres |= kBitsLettres[static_cast<unsigned char>(c)];
    return lettres;
}

// A mark and its letters.
struct Marque {
    std::string_view mot;
    Lettres lettres;
    consteval Marque(std::string_view m) : mot(m), lettres(lettres_de(m)) {}
};

inline constexpr Marque kFin{"FIN"}, kMotInc{"INC"}, kMotAir{"AIR"}, kDefM{"DEFM"},
    kDefFonction{"DEFFON"}, kMotStatX{"STATX"}, kMotStatXY{"STATXY"}, kMotTriStatX{"TRISTATX"},
    kMotResXY{"RESXY"}, kMotEuro{"EURO"}, kMotPi{"PI"};

// A text in capitals with the set of its letters.
struct TexteMarque {
    std::string_view texte;
    Lettres lettres;

    explicit TexteMarque(std::string_view t) : texte(t), lettres(lettres_de(t)) {}

    // Position of the mark from 0, or npos.
    std::size_t position(const Marque& marque) const {
        return (lettres & marque.lettres) == marque.lettres ? texte.find(marque.mot)
                                                            : std::string_view::npos;
    }
    bool contient(const Marque& marque) const {
        return position(marque) != std::string_view::npos;
    }
};
