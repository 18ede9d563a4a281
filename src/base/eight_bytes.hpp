// Up to eight characters of a text in one word, the first one in its first byte, zeros behind the last one. Holds no
// state.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Two loads of `Moitie` that may overlap, for a number of characters from its size to twice that.
template <class Moitie>
inline std::uint64_t deux_moities(const char* debut, std::size_t taille) {
    Moitie premiere, derniere;
    std::memcpy(&premiere, debut, sizeof premiere);
    std::memcpy(&derniere, debut + taille - sizeof derniere, sizeof derniere);
    return premiere | static_cast<std::uint64_t>(derniere) << 8 * (taille - sizeof derniere);
}

// `taille` (at most 8) characters of `texte` from `debut` on.
inline std::uint64_t huit_octets(std::string_view texte, std::size_t debut, std::size_t taille) {
    std::uint64_t mot = 0;
    if (taille == 0) return mot;
    const char* const premier = texte.data() + debut;
    if constexpr (std::endian::native != std::endian::little) {
        std::memcpy(&mot, premier, taille);
        return mot;
    }
    if (texte.size() >= sizeof mot) {
        // One load that stays inside the text: what stands around the characters is shifted and masked away.
        const std::size_t place = debut < texte.size() - sizeof mot ? debut : texte.size() - sizeof mot;
        std::memcpy(&mot, texte.data() + place, sizeof mot);
        return (mot >> 8 * (debut - place)) & (~std::uint64_t{0} >> 8 * (sizeof mot - taille));
    }
    if (taille >= 4) return deux_moities<std::uint32_t>(premier, taille);
    if (taille >= 2) return deux_moities<std::uint16_t>(premier, taille);
    return static_cast<unsigned char>(*premier);
}
