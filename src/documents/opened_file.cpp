// A file in UTF-8 or UTF-16 brought to the sheet's code page. Shows at most one box.
#include "documents/opened_file.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "base/typed_text.hpp"
#include "platform/platform.hpp"

namespace {

constexpr std::string_view kMarqueUtf8 = "\xEF\xBB\xBF";
constexpr std::string_view kMarquePetit = "\xFF\xFE";  // UTF-16, the low byte first
constexpr std::string_view kMarqueGrand = "\xFE\xFF";
constexpr char32_t kIllisible = 0xFFFD;  // stands for what is no character

// Two marks, which only this program writes: every character stands for itself, a no-break space too.
constexpr std::string_view kMarqueExacte = "\xEF\xBB\xBF\xEF\xBB\xBF";

bool est_utf16(std::string_view octets) {
    return octets.starts_with(kMarquePetit) || octets.starts_with(kMarqueGrand);
}

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

std::string utf8_depuis_utf16(std::string_view octets) {
    const bool petit = octets.starts_with(kMarquePetit);
    octets.remove_prefix(kMarquePetit.size());
    std::string sortie;
    sortie.reserve(octets.size());
    while (!octets.empty()) ajoute_utf8(sortie, prend_caractere(octets, petit));
    return sortie;
}

// The box of what has been lost.
std::string mots_pertes(const TexteAmene& amene) {
    const bool un = amene.perdus == 1;
    std::string mots = chiffres(static_cast<long long>(amene.perdus));
    mots += un ? " caractère de ce fichier n'existe pas dans une feuille ; un point "
                 "d'interrogation est à sa place : "_fr
               : " caractères de ce fichier n'existent pas dans une feuille ; un point "
                 "d'interrogation est à la place de chacun : "_fr;
    for (const Perdu& p : amene.premiers) {
        if (&p != &amene.premiers.front()) mots += ", ";
        (mots += code_unicode(p.caractere)) += " ligne ";
        mots += chiffres(static_cast<long long>(p.ligne));
    }
    if (amene.perdus > amene.premiers.size()) mots += ", et d'autres";
    return mots.append(". Le fichier reste tel quel jusqu'à l'enregistrement."_fr);
}

}  // namespace

bool est_unicode(std::string_view octets) {
    if (octets.starts_with(kMarqueUtf8) || est_utf16(octets)) return true;
    const bool ascii = std::all_of(octets.begin(), octets.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return !ascii && est_utf8(octets) && amene_en_page(octets).perdus == 0;
}

std::string octets_du_fichier(std::string_view texte) {
    if (!est_unicode(texte)) return std::string(texte);
    return std::string(kMarqueExacte).append(vers_utf8(texte));
}

std::string amene_fichier(std::string_view octets) {
    if (octets.starts_with(kMarqueExacte)) {
        std::optional<std::string> exact = depuis_utf8(octets.substr(kMarqueExacte.size()));
        if (exact) return std::move(*exact);
    }
    std::string converti;
    if (est_utf16(octets)) octets = converti = utf8_depuis_utf16(octets);
    if (octets.starts_with(kMarqueUtf8)) octets.remove_prefix(kMarqueUtf8.size());
    TexteAmene amene = amene_en_page(octets);
    if (amene.perdus != 0) port.boites.boite(mots_pertes(amene));
    return std::move(amene.texte);
}
