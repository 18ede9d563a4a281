// Windows-1252 texts: capitals, trimming, conversion from and to UTF-8. Changes no state.
#include "base/codepage.hpp"

std::string capitales(std::string_view texte) {
    std::string sortie;
    range_capitales(sortie, texte);
    return sortie;
}

void met_en_capitales(std::string& texte) {
    for (char& c : texte) c = capitale(c);
}

void range_capitales(std::string& cible, std::string_view texte) {
    cible.assign(texte);
    met_en_capitales(cible);
}

void ajoute_utf8(std::string& sortie, char32_t c) {
    if (c < 0x80) {
        sortie += static_cast<char>(c);
    } else if (c < 0x800) {
        sortie += static_cast<char>(0xC0 | (c >> 6));
        sortie += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        sortie += static_cast<char>(0xE0 | (c >> 12));
        sortie += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        sortie += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        sortie += static_cast<char>(0xF0 | (c >> 18));
        sortie += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        sortie += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        sortie += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::string vers_utf8(std::string_view texte) {
    std::string sortie;
    sortie.reserve(texte.size() + texte.size() / 8);
    for (const char signe : texte) {
        const auto c = static_cast<unsigned char>(signe);
        ajoute_utf8(sortie, c >= 0x80 && c < 0xA0 ? kUnicode80a9F[c - 0x80u] : char32_t{c});
    }
    return sortie;
}

std::optional<std::string> depuis_utf8(std::string_view texte, RefusTexte* refus) {
    std::string sortie;
    sortie.reserve(texte.size());
    std::size_t position = texte.starts_with(kMarqueUtf8) ? kMarqueUtf8.size() : 0;
    while (position < texte.size()) {
        const CaractereLu lu = lit_utf8(texte.substr(position, 4));
        const int code = lu.octets == 0 ? -1 : code_de(lu.caractere);
        if (code < 0) {
            if (refus != nullptr) *refus = {position, lu.octets == 0 ? 0 : lu.caractere};
            return std::nullopt;
        }
        sortie += static_cast<char>(code);
        position += lu.octets;
    }
    return sortie;
}

bool est_utf8(std::string_view texte) {
    while (!texte.empty()) {
        const CaractereLu lu = lit_utf8(texte.substr(0, 4));
        if (lu.octets == 0) return false;
        texte.remove_prefix(lu.octets);
    }
    return true;
}
