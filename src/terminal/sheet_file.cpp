// A sheet as bytes and as text. Changes no state.
#include "terminal/sheet_file.hpp"

#include <algorithm>

#include "base/codepage.hpp"
#include "base/typed_text.hpp"
#include "base/utf16.hpp"
#include "documents/opened_file.hpp"

namespace {


FinsDeLigne premieres_fins(std::string_view texte) {
    const std::size_t fin = texte.find_first_of("\r\n");
    if (fin == std::string_view::npos || texte[fin] == '\n') return FinsDeLigne::lf;
    return fin + 1 < texte.size() && texte[fin + 1] == '\n' ? FinsDeLigne::cr_lf : FinsDeLigne::cr;
}

// Line ends CR LF, CR or LF become CR LF.
std::string avec_cr_lf(std::string_view texte) {
    std::string sortie;
    sortie.reserve(texte.size() + texte.size() / 16);
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const char c = texte[i];
        if (c != '\r' && c != '\n') {
            sortie += c;
            continue;
        }
        sortie += "\r\n";
        if (c == '\r' && i + 1 < texte.size() && texte[i + 1] == '\n') ++i;
    }
    return sortie;
}

bool est_16_bits(Codage codage) {
    return codage == Codage::utf16_petit || codage == Codage::utf16_grand;
}

std::string_view signes(FinsDeLigne fins) {
    return fins == FinsDeLigne::cr_lf ? "\r\n" : fins == FinsDeLigne::lf ? "\n" : "\r";
}

// The text in the code page; nothing, and the first reason in `refus`, when it can't be brought there.
std::optional<std::string> amene_ou_refuse(std::string_view utf8, RefusFeuille& refus) {
    TexteAmene amene = amene_en_page(utf8);
    if (amene.ligne_fausse != 0)
        refus = {amene.ligne_fausse, 0};
    else if (amene.perdus != 0)
        refus = {amene.premiers[0].ligne, amene.premiers[0].caractere};
    else
        return std::move(amene.texte);
    return std::nullopt;
}

}  // namespace

Codage devine_codage(std::string_view octets) {
    if (octets.starts_with(kMarqueExacte)) return Codage::utf8_exact;
    if (octets.starts_with(kMarqueUtf8)) return Codage::utf8_avec_marque;
    if (est_utf16(octets))
        return octets.starts_with(kMarquePetit) ? Codage::utf16_petit : Codage::utf16_grand;
    return est_unicode(octets) ? Codage::utf8 : Codage::windows_1252;
}

std::optional<TexteFeuille> lit_feuille(std::string_view octets, Codage codage,
                                        RefusFeuille& refus) {
    TexteFeuille feuille_lue;
    feuille_lue.codage = codage;
    std::string converti;
    std::optional<std::string> texte;
    if (codage == Codage::windows_1252)
        texte = octets;
    else if (codage == Codage::utf8_exact)
        texte = depuis_utf8(octets.substr(kMarqueExacte.size()));
    if (!texte) {
        if (est_16_bits(codage)) octets = converti = utf8_depuis_utf16(octets);
        const bool marque = octets.starts_with(kMarqueUtf8);
        if (marque && codage == Codage::utf8) feuille_lue.codage = Codage::utf8_avec_marque;
        texte = amene_ou_refuse(octets.substr(marque ? kMarqueUtf8.size() : 0), refus);
    }
    if (!texte) return std::nullopt;
    feuille_lue.fins = premieres_fins(octets);
    feuille_lue.texte = avec_cr_lf(*texte);
    feuille_lue.fin_finale = feuille_lue.texte.ends_with("\r\n");
    if (feuille_lue.fin_finale) feuille_lue.texte.resize(feuille_lue.texte.size() - 2);
    return feuille_lue;
}

std::string ecrit_feuille(std::string_view texte, Codage codage, FinsDeLigne fins,
                          bool fin_finale) {
    std::string lignes;
    std::size_t debut = 0;
    for (;;) {
        const std::size_t paire = texte.find("\r\n", debut);
        lignes += texte.substr(debut, paire - debut);
        if (paire == std::string_view::npos) break;
        lignes += signes(fins);
        debut = paire + 2;
    }
    if (fin_finale) lignes += signes(fins);
    if (codage == Codage::windows_1252) return lignes;
    if (est_16_bits(codage)) return utf16_depuis_utf8(vers_utf8(lignes), codage == Codage::utf16_petit);
    const std::string_view marque = codage == Codage::utf8_exact         ? kMarqueExacte
                                    : codage == Codage::utf8_avec_marque ? kMarqueUtf8
                                                                         : std::string_view();
    return std::string(marque) + vers_utf8(lignes);
}
