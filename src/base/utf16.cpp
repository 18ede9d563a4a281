// Units of UTF-16 and pairs of them. Changes no state.
#include "base/utf16.hpp"

#include "base/codepage.hpp"

namespace {

constexpr char32_t kIllisible = 0xFFFD;  // stands for what is no character

// Takes one unit of UTF-16 from the start of the text; half a unit at its end is no character.
char32_t prend_unite(std::string_view& reste, bool petit) {
    if (reste.size() < 2) {
        reste = {};
        return kIllisible;
    }
    const auto premier = static_cast<unsigned char>(reste[petit ? 1 : 0]);
    const auto second = static_cast<unsigned char>(reste[petit ? 0 : 1]);
    reste.remove_prefix(2);
    return static_cast<char32_t>(premier << 8 | second);
}

bool dans(char32_t c, char32_t premier, char32_t dernier) { return c >= premier && c <= dernier; }

// Takes one character: one unit, or a pair of them. Half a pair is no character.
char32_t prend_caractere(std::string_view& reste, bool petit) {
    const char32_t haut = prend_unite(reste, petit);
    if (!dans(haut, 0xD800, 0xDFFF)) return haut;
    std::string_view suite = reste;
    const char32_t bas = suite.empty() ? kIllisible : prend_unite(suite, petit);
    if (!dans(haut, 0xD800, 0xDBFF) || !dans(bas, 0xDC00, 0xDFFF)) return kIllisible;
    reste = suite;
    return 0x10000 + ((haut - 0xD800) << 10) + (bas - 0xDC00);
}

}  // namespace

bool est_utf16(std::string_view octets) {
    return octets.starts_with(kMarquePetit) || octets.starts_with(kMarqueGrand);
}

std::string utf8_depuis_utf16(std::string_view octets) {
    const bool petit = octets.starts_with(kMarquePetit);
    octets.remove_prefix(kMarquePetit.size());
    std::string sortie;
    sortie.reserve(octets.size());
    while (!octets.empty()) ajoute_utf8(sortie, prend_caractere(octets, petit));
    return sortie;
}

std::string utf16_depuis_utf8(std::string_view utf8, bool petit) {
    std::string sortie(petit ? kMarquePetit : kMarqueGrand);
    while (!utf8.empty()) {
        const CaractereLu lu = lit_utf8(utf8.substr(0, 4));
        utf8.remove_prefix(lu.octets);
        const char bas = static_cast<char>(lu.caractere & 0xFF);
        const char haut = static_cast<char>(lu.caractere >> 8);
        sortie += petit ? bas : haut;
        sortie += petit ? haut : bas;
    }
    return sortie;
}
