// A file in UTF-8 or UTF-16 brought to the sheet's code page. Shows at most one box.
#include "documents/opened_file.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "base/typed_text.hpp"
#include "base/utf16.hpp"
#include "documents/recovery_file.hpp"
#include "platform/platform.hpp"

namespace {


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

std::string amene_reprise(std::string_view octets) {
    FicheReprise fiche;
    std::string texte;
    const bool entiere = lit_reprise(octets, fiche, texte) == EtatReprise::bonne;
    if (entiere) return texte + "\r\n";
    port.boites.boite("Ce fichier commence comme une copie de secours, mais il n'en est pas une entière : il "
                      "est montré tel quel."_fr);
    return std::string(octets);
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
