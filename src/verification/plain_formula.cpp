// Tells plain formulas by the characters that stand side by side. Changes nothing.
#include "verification/plain_formula.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "base/codepage.hpp"
#include "functions/table.hpp"
#include "verification/tree_checks.hpp"

namespace {

// What a character is: a set of bits, so that what may not follow another one is a set too.
using Sortes = std::uint16_t;
constexpr Sortes kChiffre = 1, kPoint = 2, kLettre = 4, kLettreE = 8, kAutre = 16;
constexpr Sortes kSuiteDeLettre = 32;   // a letter, refused behind another one: the two are a word

struct Caractere {
    Sortes sortes;   // what it is
    Sortes refuse;   // what may not follow it
};

constexpr std::array<Caractere, 256> kCaracteres = [] {
    std::array<Caractere, 256> t{};
    t.fill({kAutre, kAutre});
    for (const char c : {' ', '+', '-', '/', '^', '(', ')'}) t[static_cast<unsigned char>(c)] = {0, kAutre};
    for (unsigned c = '0'; c <= '9'; ++c) t[c] = {kChiffre, kAutre};
    for (unsigned c = 'A'; c <= 'Z'; ++c) t[c] = {kLettre | kSuiteDeLettre, kAutre | kSuiteDeLettre};
    t['E'].sortes |= kLettreE;
    t['.'] = {kPoint, kAutre | kPoint | kLettre};
    t['*'] = {0, kAutre | kLettreE};   // "1.5E+3" has become "1.5*E+3": an exponent to who has written it
    return t;
}();
static_assert(kPoint == kChiffre << 1, "each number keeps its second point refused");

// Whether a call with this in its brackets is of a whole number of degrees, radians or grades that is usual.
bool est_angle_habituel(std::string_view suite) {
    double angle = 0;
    std::size_t i = 1;
    for (; i < std::min<std::size_t>(suite.size(), 5) && est_chiffre(suite[i]); ++i) angle = angle * 10 + (suite[i] - '0');
    return i > 1 && suite.starts_with('(') && suite.substr(i).starts_with(')') && !angle_suspect(angle, false);
}

// A function whose value is all that comes of its call with what follows its name.
bool est_sans_suite(const LigneFonction& f, std::string_view suite) {
    const bool angle = f.numero == kSin || f.numero == kCos || f.numero == kTan;   // their unit may be another one
    return f.valeur.simple != nullptr && (!angle || est_angle_habituel(suite));
}

// True when the words of the formula are PI and the name of one such function: a second call may stand in the first.
bool mots_simples(std::string_view formule) {
    int appels = 0;
    for (std::size_t i = 0; i < formule.size(); ++i) {
        const std::size_t debut = i;
        while (i < formule.size() && est_lettre(formule[i])) ++i;
        if (i - debut < 2) continue;
        const int rang = fonction_nommee(formule.substr(debut, i - debut));
        if (rang == kPi) continue;
        if (rang == kAucuneFonction || !est_sans_suite(ligne_fonction(rang), formule.substr(i)) || ++appels > 1) return false;
    }
    return true;
}

// True for figures with at most one point among them.
bool est_nombre(std::string_view texte) {
    const std::string_view chiffres = "0123456789";
    const std::size_t point = std::min(texte.find_first_not_of(chiffres), texte.size());
    if (point == 0 || point == texte.size()) return point > 0;
    return texte[point] == '.' && point + 1 < texte.size() && texte.find_first_not_of(chiffres, point + 1) == std::string_view::npos;
}

// True for a letter or a number, more or less a percentage: "A+5%".
bool est_pourcentage_de_valeur(std::string_view formule) {
    const std::size_t signe = formule.find_first_of("+-");
    if (signe == std::string_view::npos) return false;
    const std::string_view valeur = formule.substr(0, signe), taux = formule.substr(signe + 1, formule.size() - signe - 2);
    return est_nombre(taux) && ((valeur.size() == 1 && est_lettre(valeur[0])) || est_nombre(valeur));
}

}  // namespace

bool est_formule_simple(std::string_view formule) {
    const bool affecte = formule.size() > 2 && formule[1] == '=' && est_lettre(formule[0]);
    if (formule.ends_with('%')) return est_pourcentage_de_valeur(formule.substr(affecte ? 2 : 0));
    unsigned refuses = kAutre, trouves = 0;
    // All characters are looked at: where one is refused can't be foretold.
    for (const char c : formule.substr(affecte ? 2 : 0)) {
        const Caractere ici = kCaracteres[static_cast<unsigned char>(c)];
        trouves |= refuses & ici.sortes;
        refuses = ici.refuse | (refuses & static_cast<unsigned>((ici.sortes & kChiffre) << 1));
    }
    return trouves == 0 || (trouves == kSuiteDeLettre && mots_simples(formule));
}
