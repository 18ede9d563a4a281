// The words of one step of a script. Changes no state but the step it is given.
#include "support/script_words.hpp"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"

namespace {

constexpr std::string_view kPiedDeMouche = "¶";
constexpr std::string_view kBlancs = " \t\r";  // between words, and at the ends of the line

// A number whose every character reads, or a failure of the step.
template <class Nombre>
Nombre nombre_entier_du_mot(const std::string& mot) {
    Nombre valeur{};
    const char* fin = mot.data() + mot.size();
    const auto [lu, erreur] = std::from_chars(mot.data(), fin, valeur);
    exige(erreur == std::errc() && lu == fin, "un nombre", mot);
    return valeur;
}

// Adds a piece of UTF-8 text to a quoted text.
void ajoute_morceau(std::string& texte, std::string_view morceau) {
    const auto converti = depuis_utf8(morceau);
    exige(converti.has_value(), "un texte de la feuille", std::string(morceau));
    texte += *converti;
}

// Length of "{N}" at the start of `reste`, 0 when something else stands there.
std::size_t longueur_code(std::string_view reste) {
    const std::size_t fin = reste.find_first_not_of("0123456789", 1);
    const bool code =
        reste[0] == '{' && fin != std::string_view::npos && fin > 1 && reste[fin] == '}';
    return code ? fin + 1 : 0;
}

// Takes one character, line end, code or double quote of a quoted text; false at its closing quote.
bool prend_signe(std::string& texte, std::string_view& reste) {
    std::size_t n = lit_utf8(reste).octets;
    exige(n != 0, "de l'UTF-8", std::string(reste));
    if (reste.starts_with('"') && !reste.starts_with("\"\"")) return false;
    if (reste.starts_with('"')) {
        texte += '"';
        n = 2;
    } else if (reste.starts_with(kPiedDeMouche)) {
        texte += "\r\n";
    } else if (const std::size_t code = longueur_code(reste); code != 0) {
        const int octet = nombre_entier_du_mot<int>(std::string(reste.substr(1, code - 2)));
        exige(octet <= 255, "un code de 0 à 255", std::string(reste.substr(0, code)));
        texte += static_cast<char>(octet);
        n = code;
    } else {
        ajoute_morceau(texte, reste.substr(0, n));
    }
    reste.remove_prefix(n);
    return true;
}

// Takes the characters at the start of `reste` that stand for themselves.
void prend_suite_simple(std::string& texte, std::string_view& reste) {
    const auto autre = [](char c) { return c < ' ' || c > '~' || c == '"' || c == '{'; };
    const auto fin = std::find_if(reste.begin(), reste.end(), autre);
    texte.append(reste.begin(), fin);
    reste.remove_prefix(static_cast<std::size_t>(fin - reste.begin()));
}

// Takes a quoted text from the start of `reste`.
std::string decoupe_texte(std::string_view& reste) {
    std::string texte;
    reste.remove_prefix(1);
    for (prend_suite_simple(texte, reste); !reste.empty(); prend_suite_simple(texte, reste))
        if (!prend_signe(texte, reste)) {
            reste.remove_prefix(1);
            exige(reste.empty() || kBlancs.find(reste[0]) != std::string_view::npos,
                  "un blanc derrière le texte", std::string(reste));
            return texte;
        }
    throw EtapeFausse{"un guillemet à la fin du texte", "la fin de la ligne"};
}

const Mot& prend(Etape& etape, bool cite_voulu, const char* attendu) {
    exige(etape.pris < etape.mots.size(), attendu, "la fin de l'étape");
    const Mot& mot = etape.mots[etape.pris];
    exige(mot.cite == cite_voulu, attendu, mot.cite ? cite(mot.texte) : mot.texte);
    ++etape.pris;
    return mot;
}

bool suit(const Etape& etape, bool cite_voulu) {
    return etape.pris < etape.mots.size() && etape.mots[etape.pris].cite == cite_voulu;
}

}  // namespace

Etape decoupe(std::string_view ligne) {
    Etape etape;
    for (;;) {
        const std::size_t debut = ligne.find_first_not_of(kBlancs);
        if (debut == std::string_view::npos) return etape;
        ligne.remove_prefix(debut);
        if (ligne[0] == '"') {
            etape.mots.push_back({decoupe_texte(ligne), true});
            continue;
        }
        const std::size_t fin = std::min(ligne.find_first_of(kBlancs), ligne.size());
        etape.mots.push_back({std::string(ligne.substr(0, fin)), false});
        ligne.remove_prefix(fin);
    }
}

bool suit_texte(const Etape& etape) { return suit(etape, true); }
bool suit_mot(const Etape& etape) { return suit(etape, false); }
std::string prend_texte(Etape& etape) {
    return prend(etape, true, "un texte entre guillemets").texte;
}
std::string prend_mot(Etape& etape) { return prend(etape, false, "un mot").texte; }

double prend_nombre(Etape& etape) {
    return nombre_entier_du_mot<double>(prend(etape, false, "un nombre").texte);
}
long prend_entier(Etape& etape) {
    return nombre_entier_du_mot<int>(prend(etape, false, "un nombre").texte);
}

long prend_rang(Etape& etape, long premier, long dernier) {
    const long rang = prend_entier(etape);
    exige(rang >= premier && rang <= dernier,
          "un nombre de " + std::to_string(premier) + " à " + std::to_string(dernier),
          std::to_string(rang));
    return rang;
}

std::string cite(std::string_view texte) {
    std::string sortie = "\"";
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const auto octet = static_cast<unsigned char>(texte[i]);
        if (texte.substr(i).starts_with("\r\n")) {
            sortie += kPiedDeMouche;
            ++i;
        } else if (octet < 32 || octet == 127 || vers_utf8(texte.substr(i, 1)) == kPiedDeMouche) {
            sortie += "{" + std::to_string(octet) + "}";
        } else {
            sortie += octet == '"' ? "\"\"" : vers_utf8(texte.substr(i, 1));
        }
    }
    return sortie + "\"";
}

void compare(std::string_view attendu, std::string_view obtenu) {
    if (attendu != obtenu) throw EtapeFausse{cite(attendu), cite(obtenu)};
}

void compare(double attendu, double obtenu) {
    if (attendu != obtenu) throw EtapeFausse{texte_general(attendu), texte_general(obtenu)};
}

void exige(bool condition, std::string attendu, std::string obtenu) {
    if (!condition) throw EtapeFausse{std::move(attendu), std::move(obtenu)};
}
