// The symbol reader. Reads p_formule; changes p_position, l_symbole, type_f, l_valeur and, through
// the identifiers, the rest of `moteur`. Reports the formula's errors.
#include "engine/reader.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/identifiers.hpp"
#include "engine/notes.hpp"
#include "engine/number_text.hpp"
#include "engine/operations.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"

namespace {

constexpr Procedure kPLisSymbole{" sur p_lis_symbole"_fr, true};
constexpr Procedure kLisSymbole{" sur lis_symbole"_fr, true};

constexpr int kPositionMaxi = std::numeric_limits<std::int16_t>::max();

constexpr std::string_view kSeparateurs = " +-*/^(),@=%";
constexpr auto kEstSeparateur = [] {
    std::array<bool, 256> t{};
    for (const char c : kSeparateurs) t[static_cast<unsigned char>(c)] = true;
    return t;
}();

bool est_separateur(char c) { return kEstSeparateur[static_cast<unsigned char>(c)]; }

// Moves the cursor to `position` (from 1). Beyond 32,767 the 16-bit cursor overflows: reading ends.
void avance(std::size_t position) {
    if (position > static_cast<std::size_t>(kPositionMaxi)) [[unlikely]] {
        moteur.lecture_finie = true;
        echoue(kDepassement);
    }
    moteur.p_position = static_cast<std::int16_t>(position);
}

constexpr std::size_t kReperes = 64;   // characters of a formula that have a bit in `bornes`

// Characters from `debut` to the next separator, or to `borne`.
std::size_t longueur_symbole(const std::string& formule, std::size_t debut, std::size_t borne) {
    std::size_t fin = debut;
    while (fin < borne && !est_separateur(formule[fin])) ++fin;
    return fin - debut;
}

// Cuts the symbol that starts at or after p_position into l_symbole; answers the position after it.
std::size_t coupe_symbole() {
    const std::string& formule = moteur.p_formule;
    const std::size_t borne = std::min<std::size_t>(formule.size(), kPositionMaxi);
    std::size_t debut = static_cast<std::size_t>(moteur.p_position) - 1;   // from 0
    while (debut < borne && formule[debut] == ' ') ++debut;
    moteur.debut_symbole = static_cast<std::int16_t>(debut + 1);
    if (debut >= borne) [[unlikely]] {
        moteur.l_symbole.vide();   // beyond the end, and the cursor still moves on
        note_symbole(debut + 1, debut + 1);
        return debut + 2;
    }
    // A separator is itself the symbol.
    const std::size_t taille = std::max<std::size_t>(longueur_symbole(formule, debut, borne), 1);
    moteur.l_symbole.pose(formule, debut, taille);
    note_symbole(debut + 1, debut + taille);
    return debut + taille + 1;
}

// The usual symbol, short and with its end near, is cut without what only others need. False, and nothing done, when it
// is another one.
inline bool coupe_symbole_court() {
    const auto debut = static_cast<std::size_t>(moteur.p_position) - 1;
    if (debut >= kReperes || moteur.lecture_finie) [[unlikely]]
        return false;
    const auto taille = static_cast<std::size_t>(std::countr_zero(moteur.bornes >> debut >> 1)) + 1;
    if (taille > Symbole::kCourt || moteur.p_formule[debut] == ' ') [[unlikely]]
        return false;
    moteur.debut_symbole = moteur.p_position;
    moteur.l_symbole.pose_court(moteur.p_formule, debut, taille);
    moteur.p_position = static_cast<std::int16_t>(debut + taille + 1);
    return true;
}

// Appends the parts of an exponent cut by the separators "+" and "-" to the number in l_symbole.
[[gnu::noinline]] void joint_exposant() {
    const std::int32_t debut = place_symbole();
    std::string garde(moteur.l_symbole);
    p_lis_symbole();
    garde += moteur.l_symbole;
    if (tete_symbole() == '+' || tete_symbole() == '-') {
        p_lis_symbole();
        garde += moteur.l_symbole;
    }
    moteur.l_symbole = garde;
    note_symbole_joint(debut);
}

// The next symbol, whatever it is like, and its note.
[[gnu::noinline]] void lis_tout_symbole() {
    std::size_t position = 0;
    if (moteur.lecture_finie) return moteur.l_symbole.vide();
    if (coupe_symbole_court())
        return note_symbole(static_cast<std::size_t>(moteur.debut_symbole), static_cast<std::size_t>(moteur.p_position - 1));
    if (!Tente(kPLisSymbole, [&] { position = coupe_symbole(); })) return;
    Tente(kPLisSymbole, [&] { avance(position); });
}

// The next symbol. Nearly all are short, and of nearly all nobody takes note.
inline void lis_le_suivant() {
    if (moteur.releve != nullptr || !coupe_symbole_court()) [[unlikely]]
        lis_tout_symbole();
}

}  // namespace

void commence_lecture() noexcept {
    moteur.p_position = 1;
    moteur.lecture_finie = false;
    place_separateurs();
}

void place_separateurs() noexcept {
    const std::string_view formule = moteur.p_formule;
    std::uint64_t separateurs = 0;
    for (std::size_t i = std::min(formule.size(), kReperes); i-- > 0;)
        separateurs = separateurs << 1 | (est_separateur(formule[i]) ? 1 : 0);
    moteur.bornes = separateurs | separateurs << 1;
}

void p_lis_symbole() noexcept { lis_le_suivant(); }

bool nomme_fonction() noexcept {
    const int rang = operations.fonction_nommee(moteur.l_symbole);
    if (rang == 0) return false;
    moteur.type_f = static_cast<std::int16_t>(rang);
    return true;
}

void lis_symbole() noexcept {
    lis_le_suivant();
    if (test_fonction()) return;
    const char premier = tete_symbole();
    if (premier >= 'A' && premier <= 'Z') {
        lis_identificateur();
    } else if (premier == '$' || premier == '#' || premier == "œ"_fr[0]) {
        lis_constante();
    } else if (premier >= '0' && premier <= '9') {
        if (moteur.l_symbole.back() == 'E') Tente(kLisSymbole, [] { joint_exposant(); });
        lis_constante();
    }
}

void lis_constante() noexcept {
    moteur.l_valeur = 0;
    // A literal beyond the floats is told by the number of its failure alone, with its blank.
    try {
        if (tete_symbole() == "œ"_fr[0])
            // Kept: see the oddities, words-as-always.
            affiche_erreur_formule("constante erronee"_fr);
        else
            moteur.l_valeur = valeur_litteral(moteur.l_symbole);
    } catch (const Defaillance& d) {
        affiche_erreur_formule(forme_blanc(d.numero));
    } catch (...) {
        affiche_erreur_formule(forme_blanc(kMemoire));
    }
}

double valeur_litteral(std::string_view symbole) {
    if (symbole.front() == '$') return valhexa(symbole.substr(1));
    return prefixe_numerique(symbole.front() == '#' ? symbole.substr(1) : symbole);
}

bool chnenbin(std::string_view texte, double& valeur) {
    valeur = 0;
    for (const char c : texte) {
        if (c != '0' && c != '1') return false;
        range(valeur, valeur * 2 + (c - '0'), valeur);
    }
    return true;
}
