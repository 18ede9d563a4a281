// Characters that the sheet's code page lacks: what they become, or their refusal. Changes no state.
#include "base/typed_text.hpp"

#include <algorithm>
#include <array>

#include "base/codepage.hpp"

namespace {

// An accent that follows its letter, with the letters that take it and what they become.
struct Accent {
    char32_t accent;
    std::u32string_view lettres;
    std::u32string_view accentuees;
};
constexpr std::array kAccents = {
    Accent{0x300, U"aeiouAEIOU", U"àèìòùÀÈÌÒÙ"},
    Accent{0x301, U"aeiouyAEIOUY", U"áéíóúýÁÉÍÓÚÝ"},
    Accent{0x302, U"aeiouAEIOU", U"âêîôûÂÊÎÔÛ"},
    Accent{0x303, U"anoANO", U"ãñõÃÑÕ"},
    Accent{0x308, U"aeiouyAEIOUY", U"äëïöüÿÄËÏÖÜŸ"},
    Accent{0x30A, U"aA", U"åÅ"},
    Accent{0x30C, U"szSZ", U"šžŠŽ"},
    Accent{0x327, U"cC", U"çÇ"},
};

// What stands for characters that keyboards, documents and web pages give.
struct Remplacement {
    std::u32string_view signes;
    std::string_view texte;
};
constexpr std::array kRemplacements = {
    Remplacement{U"\u2212\u2010\u2011\uFE63\uFF0D", "-"},
    Remplacement{U"\u2217\u22C5\u2715\u2A2F\uFF0A", "*"},
    Remplacement{U"\u2215\u2044\uFF0F", "/"},
    Remplacement{U"\uFF0B", "+"},
    Remplacement{U"\u03C0\U0001D70B\u03A0", "PI"},
    Remplacement{U"\u221A", "SQRT"},
    Remplacement{U"\u03BC", "µ"_fr},
    Remplacement{U"\u00A0\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u202F"
                 U"\u205F\u3000",
                 " "},
    Remplacement{U"\u200B\u2060\uFEFF\u00AD", ""},
    Remplacement{U"\r\u2028\u2029\u0085", "\n"},
};

// The replacement of that character, or nullptr.
const Remplacement* remplacement(char32_t c) {
    for (const Remplacement& r : kRemplacements)
        if (r.signes.find(c) != std::u32string_view::npos) return &r;
    return nullptr;
}

void ajoute(std::string& sortie, char32_t c) { sortie += static_cast<char>(code_de(c)); }

// Adds one character in the code page, with the accent that stands behind it. False when the sheet
// can't have it.
bool ajoute_caractere(std::string& sortie, char32_t c, std::string_view& reste) {
    const CaractereLu suite = reste.empty() ? CaractereLu{0, 0} : lit_utf8(reste.substr(0, 4));
    if (const char32_t lettre = compose(c, suite.caractere); lettre != 0) {
        reste.remove_prefix(suite.octets);
        ajoute(sortie, lettre);
    } else if (c == '\r' && suite.caractere == '\n') {
        // The LF behind it is the line end.
    } else if (const Remplacement* r = remplacement(c)) {
        sortie += r->texte;
    } else if (c != 0 && code_de(c) >= 0) {
        ajoute(sortie, c);
    } else {
        return false;
    }
    return true;
}

// True for a character that nothing changes, as nearly all are: it is ASCII, and so is the next one.
bool simple(char32_t c, std::string_view reste) {
    return c < 0x80 && c != '\r' && (reste.empty() || static_cast<unsigned char>(reste[0]) < 0x80);
}

}  // namespace

char32_t compose(char32_t lettre, char32_t accent) {
    for (const Accent& a : kAccents) {
        if (a.accent != accent) continue;
        const std::size_t rang = a.lettres.find(lettre);
        return rang == std::u32string_view::npos ? 0 : a.accentuees[rang];
    }
    return 0;
}

bool est_accent(char32_t c) {
    return std::any_of(kAccents.begin(), kAccents.end(),
                       [&](const Accent& a) { return a.accent == c; });
}

std::optional<std::string> texte_accepte(std::string_view utf8, char32_t& refuse) {
    std::string sortie;
    sortie.reserve(utf8.size());
    while (!utf8.empty()) {
        const CaractereLu lu = lit_utf8(utf8.substr(0, 4));
        utf8.remove_prefix(lu.octets);
        refuse = lu.octets == 0 ? 0 : lu.caractere;
        if (lu.octets == 0 || !ajoute_caractere(sortie, lu.caractere, utf8)) return std::nullopt;
    }
    return vers_utf8(sortie);
}

TexteAmene amene_en_page(std::string_view utf8) {
    TexteAmene amene;
    std::string& sortie = amene.texte;
    sortie.reserve(utf8.size());
    std::size_t ligne = 1;
    while (!utf8.empty()) {
        const std::size_t fait = sortie.size();
        const CaractereLu lu = lit_utf8(utf8.substr(0, 4));
        const char octet = utf8.front();
        utf8.remove_prefix(std::max<std::size_t>(lu.octets, 1));
        if (lu.octets == 0) {
            if (amene.ligne_fausse == 0) amene.ligne_fausse = ligne;
            sortie += octet;
        } else if (lu.caractere == 0 || simple(lu.caractere, utf8)) {
            sortie += octet;
        } else if (!ajoute_caractere(sortie, lu.caractere, utf8)) {
            sortie += '?';
            if (amene.perdus++ < kPerdusCites) amene.premiers.push_back({ligne, lu.caractere});
        }
        const auto ajouts = sortie.begin() + static_cast<std::ptrdiff_t>(fait);
        ligne += static_cast<std::size_t>(std::count(ajouts, sortie.end(), '\n'));
    }
    return amene;
}

std::string code_unicode(char32_t caractere) {
    std::string code;
    for (; caractere != 0 || code.size() < 4; caractere /= 16)
        code.insert(code.begin(), "0123456789ABCDEF"[caractere % 16]);
    return "U+" + code;
}

std::string mots_refus(char32_t caractere) { return "caractère refusé " + code_unicode(caractere); }
