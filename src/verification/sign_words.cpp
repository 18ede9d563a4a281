// The words of signs. Changes nothing.
#include "verification/sign_words.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/codepage.hpp"
#include "functions/table.hpp"
#include "state/matrices.hpp"
#include "verification/function_words.hpp"

namespace {

struct Signe {
    std::string_view signe;
    std::string_view mots;
};

// A sign that isn't here is left as it stands.
constexpr Signe kSignes[] = {
    {"+", "plus"}, {"-", "moins"}, {"*", "fois"}, {"/", "divisé par"_fr}, {"^", "puissance"},
    {"=", "égale"_fr}, {"(", "parenthèse"_fr}, {")", "fin parenthèse"_fr}, {"%", "pour cent"},
    {",", "virgule"}, {";", "point virgule"}, {":", "deux points"}, {".", "point"},
    {"!", "point d'exclamation"}, {"?", "point d'interrogation"}, {"'", "apostrophe"},
    {"’"_fr, "apostrophe"}, {"\"", "guillemet"}, {"«"_fr, "guillemet ouvrant"}, {"»"_fr, "guillemet fermant"},
    {"[", "crochet"}, {"]", "fin crochet"}, {"{", "accolade"}, {"}", "fin accolade"}, {"<", "inférieur"_fr},
    {">", "supérieur"_fr}, {"_", "souligné"_fr}, {"\\", "barre inverse"}, {"|", "barre verticale"},
    {"#", "dièse"_fr}, {"$", "dollar"}, {"&", "et commercial"}, {"@", "arobase"}, {"~", "tilde"},
    {"`", "accent grave"}, {"×"_fr, "signe fois"}, {"÷"_fr, "signe divisé"_fr}, {"·"_fr, "point au milieu"},
    {"°"_fr, "degré"_fr}, {"²"_fr, "au carré"_fr}, {"³"_fr, "au cube"}, {"¹"_fr, "exposant 1"},
    {"½"_fr, "un demi"}, {"¼"_fr, "un quart"}, {"¾"_fr, "trois quarts"}, {"±"_fr, "plus ou moins"},
    {"–"_fr, "tiret"}, {"—"_fr, "tiret"}, {"€"_fr, "euro"}, {"£"_fr, "livre"}, {"§"_fr, "paragraphe"},
    {"µ"_fr, "micro"}, {"…"_fr, "points de suspension"}, {"\xA0", "blanc"},
};

// The operators that are words, with what they are called in a formula.
constexpr Signe kOperateurs[] = {{"AND", "et"}, {"OR", "ou"}, {"XOR", "ou exclusif"}, {"NOT", "non"}};

std::string_view mots_de(auto& table, std::string_view signe) {
    const auto ligne = std::ranges::find(table, signe, &Signe::signe);
    return ligne == std::end(table) ? std::string_view() : ligne->mots;
}

bool est_lettre_dite(char c) { return est_lettre_de_mot(c) || c == "œ"_fr[0] || c == "Œ"_fr[0]; }

bool est_apostrophe(char c) { return c == '\'' || c == "’"_fr[0]; }

// How many characters from the start belong to one number or one word; 0 for a sign. The dot between two
// digits is the number's, and an apostrophe between letters the word's.
std::size_t taille_mot(std::string_view texte) {
    const auto suite = [&](auto est) {
        return static_cast<std::size_t>(std::ranges::find_if_not(texte, est) - texte.begin());
    };
    if (texte.starts_with("×"_fr) || texte.starts_with("÷"_fr)) return 0;
    if (const std::size_t lettres = suite(est_lettre_dite); lettres > 0) {
        const bool elision =
            lettres + 1 < texte.size() && est_apostrophe(texte[lettres]) && est_lettre_dite(texte[lettres + 1]);
        return elision ? lettres + 1 + taille_mot(texte.substr(lettres + 1)) : lettres;
    }
    std::size_t n = suite(est_chiffre);
    while (n > 0 && n + 1 < texte.size() && texte[n] == '.' && est_chiffre(texte[n + 1])) {
        n += 1;
        while (n < texte.size() && est_chiffre(texte[n])) ++n;
    }
    return n;
}

// Words for a run of letters: an operator, a function, a matrix, or the word itself.
void ajoute_lettres(std::string& phrase, std::string_view lettres) {
    const std::string grandes = capitales(lettres);
    if (const std::string_view mots = mots_de(kOperateurs, grandes); !mots.empty())
        return ajoute_mots(phrase, mots);
    const int rang = grandes.size() < 2 ? 0 : fonction_nommee(grandes);
    if (rang != 0 && ligne_fonction(rang).nom == grandes) return ajoute_mots(phrase, mots_fonction(rang).debut);
    if (grandes.size() == 2 && grandes[0] == 'M' && TestCarMatrice(std::string_view(grandes).substr(1)))
        return ajoute_mots(phrase, std::string("matrice ") + grandes[1]);
    const bool variable = grandes.size() == 1 && est_lettre(grandes[0]);
    ajoute_mots(phrase, variable ? mots_lettre(grandes[0]) : std::string(lettres));
}

}  // namespace

std::string mots_lettre(char lettre) { return lettre == 'Y' ? "i grec" : std::string(1, lettre); }

void ajoute_mots(std::string& phrase, std::string_view mots) {
    if (!phrase.empty() && !mots.empty()) phrase += ' ';
    phrase += mots;
}

std::string signes_en_mots(std::string_view texte) {
    std::string phrase;
    while (!texte.empty()) {
        const std::size_t taille = taille_mot(texte);
        const std::string_view morceau = texte.substr(0, std::max<std::size_t>(taille, 1));
        texte.remove_prefix(morceau.size());
        if (taille > 0 && !est_chiffre(morceau[0]))
            ajoute_lettres(phrase, morceau);
        else if (const std::string_view mots = mots_de(kSignes, morceau); !mots.empty())
            ajoute_mots(phrase, mots);
        else if (morceau != " ")
            ajoute_mots(phrase, morceau);
    }
    return phrase;
}
