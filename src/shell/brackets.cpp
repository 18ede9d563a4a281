// The brackets of a line. The comment of a line has its own: a bracket there closes none of the formula's.
#include "shell/brackets.hpp"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/old_result.hpp"
#include "verification/sign_words.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

// Place of the bracket that belongs to the one at `place`, npos when there is none.
std::size_t parenthese_liee(std::string_view texte, std::size_t place) {
    const bool ouvrante = texte[place] == '(';
    int profondeur = 0;
    for (std::size_t i = place; i < texte.size(); ouvrante ? ++i : --i) {   // below 0 it is beyond the end
        if (texte[i] == '(') ++profondeur;
        if (texte[i] == ')') --profondeur;
        if (profondeur == 0) return i;
    }
    return npos;
}

// The part of a line that a place is in: the formula, or the comment with its mark.
Etendue partie(std::string_view ligne, std::size_t place) {
    const std::size_t limite = std::min(ligne.find('!'), ligne.size());
    return place < limite ? Etendue{0, limite} : Etendue{limite, ligne.size()};
}

// The line without what a calculation wrote after it: the words of an error have brackets too.
std::string sans_resultat(std::string ligne) {
    const std::size_t debut = std::min(ligne.find_first_not_of(' '), ligne.size());
    const std::size_t coupe = fin_gardee(ligne.substr(debut));
    if (coupe != npos) ligne.resize(debut + coupe);
    return ligne;
}

// "parenthèse ouvrante colonne 3", for the bracket at `place` of the line.
std::string designe(std::string_view ligne, std::size_t place) {
    std::string mots(ligne[place] == '(' ? "parenthèse ouvrante colonne "_fr : "parenthèse fermante colonne "_fr);
    return mots += chiffres(static_cast<long long>(place + 1));
}

// Goes to the bracket `vers` of the line at `debut`, and says what stands between it and `depuis`.
void va_sur(std::string_view ligne, std::size_t debut, std::size_t depuis, std::size_t vers) {
    const auto [gauche, droite] = std::minmax(depuis, vers);
    const std::string dedans = signes_en_mots(ligne.substr(gauche + 1, droite - gauche - 1));
    const std::string mots = designe(ligne, vers).append(" autour de ").append(dedans.empty() ? "rien" : dedans);
    port.texte.pose_selection(debut + vers, 0);
    dit(mots);
}

}  // namespace

void mnuParentheseItem() {
    const std::string& texte = port.texte.texte();
    const Etendue etendue = etendue_autour(texte, curseur());
    const std::string ligne = sans_resultat(std::string(mots_de(texte, etendue)));
    const std::size_t place = ligne.find_last_of("()", std::min(curseur() - etendue.debut, ligne.size()));
    if (place == npos) return dit(kAucuneParenthese);
    const Etendue p = partie(ligne, place);
    const std::size_t autre =
        parenthese_liee(std::string_view(ligne).substr(p.debut, p.fin - p.debut), place - p.debut);
    if (autre != npos) return va_sur(ligne, etendue.debut, place, p.debut + autre);
    dit(designe(ligne, place).append(ligne[place] == '(' ? " sans fermante" : " sans ouvrante"));
}
