// Characters that the sheet's code page lacks: what they become, or their refusal. Changes no state.
#include "base/typed_text.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"

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
    Remplacement{U"\u2212\u2010\u2011\u2012\u2015\u2796\uFE63\uFF0D", "-"},
    Remplacement{U"\u2217\u2219\u22C5\u2715\u2716\u2A2F\uFF0A", "*"},
    Remplacement{U"\u2215\u2044\u2797\uFF0F", "/"},
    Remplacement{U"\u2795\uFF0B", "+"},
    Remplacement{U"\u03C0\U0001D70B\u03A0", "PI"},
    Remplacement{U"\u221A", "SQRT"},
    Remplacement{U"\u03BC", "µ"_fr},
    Remplacement{U"\u00A0\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u202F"
                 U"\u205F\u3000",
                 " "},
    Remplacement{U"\u00AD\u200B\u200C\u200D\u200E\u200F\u202A\u202B\u202C\u202D\u202E\u2060\u2066\u2067"
                 U"\u2068\u2069\uFE0E\uFE0F\uFEFF",
                 ""},
    Remplacement{U"\r\u2028\u2029\u0085", "\n"},
};

// The same where a line is calculated alone: in a comment these stay as they are.
constexpr std::array kRemplacementsCalcul = {
    Remplacement{U"\u00D7\u00B7", "*"},
    Remplacement{U"\u00F7", "/"},
    Remplacement{U"\u2013\u2014", "-"},
};

// Signs that are exponents by themselves, and what they are after "^".
constexpr std::u32string_view kExposants =
    U"\u2070\u00B9\u00B2\u00B3\u2074\u2075\u2076\u2077\u2078\u2079\u207A\u207B\u207C\u207D\u207E\u207F";
constexpr std::string_view kSignesExposants = "0123456789+-=()n";
constexpr char32_t kCarre = 0xB2;       // that the calculation knows

// Letters that the dead circumflex has taken, and what they were.
constexpr std::u32string_view kCirconflexes =
    U"\u00E2\u00EA\u00EE\u00F4\u00FB\u00C2\u00CA\u00CE\u00D4\u00DB"
    U"\u0109\u011D\u0125\u0135\u015D\u0175\u0177\u1E91\u0108\u011C\u0124\u0134\u015C\u0174\u0176\u1E90";
constexpr std::string_view kSansCirconflexe = "aeiouAEIOUcghjswyzCGHJSWYZ";

// Blanks that a text puts between the thousands of a number.
constexpr std::u32string_view kBlancsMilliers = U"\u00A0\u2007\u2009\u202F";

// The replacement of that character, or nullptr.
template <std::size_t N>
const Remplacement* remplacement(const std::array<Remplacement, N>& table, char32_t c) {
    for (const Remplacement& r : table)
        if (r.signes.find(c) != std::u32string_view::npos) return &r;
    return nullptr;
}

void ajoute(std::string& sortie, char32_t c) { sortie += static_cast<char>(code_de(c)); }

bool est_exposant(char32_t c) { return kExposants.find(c) != std::u32string_view::npos; }

CaractereLu suivant(std::string_view reste) {
    return reste.empty() ? CaractereLu{0, 0} : lit_utf8(reste.substr(0, 4));
}

// The exponents that stand together from `c` on, taken from `reste`.
std::u32string prend_exposants(char32_t c, std::string_view& reste) {
    std::u32string suite(1, c);
    for (CaractereLu lu = suivant(reste); lu.octets != 0 && est_exposant(lu.caractere);
         lu = suivant(reste)) {
        suite += lu.caractere;
        reste.remove_prefix(lu.octets);
    }
    return suite;
}

// Adds exponents that stand together, as one power: a sign and its number are one only in brackets.
void ajoute_exposants(std::string& sortie, const std::u32string& suite) {
    std::string signes;
    for (const char32_t c : suite) signes += kSignesExposants[kExposants.find(c)];
    const bool signe = signes[0] == '-' || signes[0] == '+';
    const bool entoure = signe && signes.size() > 1 && signes.find_first_of("()") == std::string::npos;
    sortie += entoure ? "^(" + signes + ")" : "^" + signes;
}

// Adds exponents that stand together, one of which the code page lacks. False when there are none.
bool ajoute_puissance(std::string& sortie, char32_t c, std::string_view& reste) {
    if (!est_exposant(c)) return false;
    std::string_view apres = reste;
    const std::u32string suite = prend_exposants(c, apres);
    if (std::all_of(suite.begin(), suite.end(), [](char32_t e) { return code_de(e) >= 0; }))
        return false;
    ajoute_exposants(sortie, suite);
    reste = apres;
    return true;
}

// Adds one character in the code page, with the accent that stands after it. False when the sheet
// can't have it.
bool ajoute_caractere(std::string& sortie, char32_t c, std::string_view& reste) {
    const CaractereLu suite = suivant(reste);
    if (ajoute_puissance(sortie, c, reste)) return true;
    if (const char32_t lettre = compose(c, suite.caractere); lettre != 0) {
        reste.remove_prefix(suite.octets);
        ajoute(sortie, lettre);
    } else if (c == '\r' && suite.caractere == '\n') {
        // The LF after it is the line end.
    } else if (const Remplacement* r = remplacement(kRemplacements, c)) {
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

// The sheet's line while a text goes in after what stands there.
struct LigneEnCours {
    std::string sortie;              // in the code page, from the start of the first line
    std::size_t vus = 0;             // bytes of it that `calcule` knows
    bool calcule = true;             // no "!" stands in the line yet
    bool muet = false;               // the character that came last would be passed over

    explicit LigneEnCours(std::string_view devant) {
        while (!devant.empty()) {
            const CaractereLu lu = lit_utf8(devant.substr(0, 4));
            const int code = lu.octets == 0 ? -1 : code_de(lu.caractere);
            sortie += code < 0 ? '?' : static_cast<char>(code);
            devant.remove_prefix(std::max<std::size_t>(lu.octets, 1));
        }
        regarde();
    }
    void regarde() {
        for (; vus < sortie.size(); ++vus)
            calcule = sortie[vus] == '\n' || (calcule && sortie[vus] != '!');
    }
    char dernier() const { return sortie.empty() ? '\n' : sortie.back(); }
};

bool est_chiffre_lu(char32_t c) { return c < 0x80 && est_chiffre(static_cast<char>(c)); }
bool ferme(char c) { return c == ')' || c == ']' || c == '}'; }

bool finit_nombre(char c) { return est_chiffre(c) || ferme(c); }

// The letter that a circumflex has taken and that is a power here, or 0. A letter of the code page is
// one after a number or a bracket alone: elsewhere it may be a word's.
char lettre_de_puissance(const LigneEnCours& ligne, char32_t c) {
    const std::size_t rang = kCirconflexes.find(c);
    const char avant = ligne.dernier();
    const bool lettre = est_lettre(capitale(avant));
    if (rang == std::u32string_view::npos || !(finit_nombre(avant) || (lettre && code_de(c) < 0)))
        return 0;
    return kSansCirconflexe[rang];
}

// A character where the line is calculated. False when it is like in any text.
bool ajoute_calcul(LigneEnCours& ligne, char32_t c, std::string_view& reste) {
    const char32_t apres = suivant(reste).caractere;
    if (est_exposant(c) && (c != kCarre || est_exposant(apres))) {
        ajoute_exposants(ligne.sortie, prend_exposants(c, reste));
    } else if (const Remplacement* r = remplacement(kRemplacementsCalcul, c)) {
        ligne.sortie += r->texte;
    } else if (const char lettre = lettre_de_puissance(ligne, c); lettre != 0) {
        ligne.sortie += {'^', lettre};
    } else {
        const bool milliers = kBlancsMilliers.find(c) != std::u32string_view::npos;
        return milliers && est_chiffre(ligne.dernier()) && est_chiffre_lu(apres);
    }
    return true;
}

// True when the calculation ends its number at the byte that came last, and says nothing of the rest:
// a sign that it doesn't know, or a blank with a digit after it.
bool passe_sous_silence(const LigneEnCours& ligne, std::size_t avant, std::string_view reste) {
    if (!ligne.calcule || ligne.sortie.size() != avant + 1) return false;
    const char c = ligne.sortie[avant];
    std::size_t nombre = avant;
    while (nombre > 0 && ligne.sortie[nombre - 1] == ' ') --nombre;
    if (nombre == 0 || !finit_nombre(ligne.sortie[nombre - 1])) return false;
    if (c == ' ') return !ferme(ligne.sortie[nombre - 1]) && est_chiffre_lu(suivant(reste).caractere);
    return static_cast<unsigned char>(c) >= 0x80 && c != static_cast<char>(kCarre);
}

// Takes one character in, with the accent or the exponents that stand after it. False when the sheet
// can't have it.
bool avance(LigneEnCours& ligne, char32_t c, std::string_view& reste) {
    const std::size_t avant = ligne.sortie.size();
    const CaractereLu suite = suivant(reste);
    if (const char32_t lettre = compose(c, suite.caractere); lettre != 0) {
        reste.remove_prefix(suite.octets);
        c = lettre;
    }
    const bool fait = ligne.calcule && c >= 0x80 && ajoute_calcul(ligne, c, reste);
    if (!fait && !ajoute_caractere(ligne.sortie, c, reste)) return false;
    ligne.regarde();
    ligne.muet = passe_sous_silence(ligne, avant, reste);
    return true;
}

// The place after the characters that have been taken; CR LF is one line end.
void passe(SigneVenu& ici, std::string_view pris, std::string_view reste) {
    if (pris == "\n" || (pris == "\r" && !reste.starts_with('\n'))) {
        ici.colonne = 1;
        ++ici.ligne;
        return;
    }
    ici.colonne += static_cast<std::size_t>(std::count_if(
        pris.begin(), pris.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

constexpr std::size_t kEchoMaxi = 4;    // characters; more than that was no key

std::string mots_muet(const SigneVenu& signe) {
    if (signe.caractere == ' ') return "espace dans un nombre";
    std::string mots;
    ajoute_utf8(mots, signe.caractere);
    return mots + " ne se calcule pas";
}

std::string ou(const SigneVenu& signe) {
    return ", ligne " + std::to_string(signe.ligne) + ", colonne " + std::to_string(signe.colonne);
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

TexteSaisi saisit(std::string_view utf8, std::string_view devant) {
    TexteSaisi saisi;
    LigneEnCours ligne(devant);
    const std::size_t debut = ligne.sortie.size();
    SigneVenu ici;
    while (!utf8.empty()) {
        const CaractereLu lu = lit_utf8(utf8.substr(0, 4));
        const std::string_view depart = utf8;
        utf8.remove_prefix(lu.octets);
        ici.caractere = lu.octets == 0 ? 0 : lu.caractere;
        if (lu.octets == 0 || !avance(ligne, lu.caractere, utf8)) {
            saisi.refuse = ici;
            return saisi;
        }
        if (ligne.muet && !saisi.muet) {
            saisi.muet = ici;
            if (ligne.dernier() == ' ') saisi.muet->caractere = ' ';
        }
        passe(ici, depart.substr(0, depart.size() - utf8.size()), utf8);
    }
    saisi.caracteres = ligne.sortie.size() - debut;
    saisi.texte = vers_utf8(std::string_view(ligne.sortie).substr(debut));
    return saisi;
}

std::optional<std::string> texte_accepte(std::string_view utf8, char32_t& refuse) {
    TexteSaisi saisi = saisit(utf8, "!");
    if (!saisi.refuse) return std::move(saisi.texte);
    refuse = saisi.refuse->caractere;
    return std::nullopt;
}

std::string mots_saisie(const TexteSaisi& saisi, std::string_view utf8) {
    if (saisi.refuse) return mots_refus(saisi.refuse->caractere);
    if (saisi.muet) return mots_muet(*saisi.muet);
    const bool autre = saisi.texte != utf8 && saisi.caracteres <= kEchoMaxi;
    return autre && saisi.texte.find_first_not_of(" \n") != std::string::npos ? saisi.texte : "";
}

std::string mots_collage(const TexteSaisi& saisi) {
    if (saisi.refuse) return mots_refus(saisi.refuse->caractere) + ou(*saisi.refuse);
    if (saisi.caracteres == 0) return "rien à coller";
    const std::string mots = combien(saisi.caracteres, "caractère collé", "caractères collés");
    return saisi.muet ? mots + ", " + mots_muet(*saisi.muet) + ou(*saisi.muet) : mots;
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
