// The place of a fault: a formula and the text that it was made of are walked through together.
#include "sheet/fault.hpp"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/codepage.hpp"
#include "editing/lines.hpp"
#include "platform/boxes.hpp"
#include "sheet/marks.hpp"
#include "sheet/old_result.hpp"
#include "state/context.hpp"
#include "state/sheet.hpp"

namespace {

// A list of a data set has no formula: the piece is the line.
constexpr std::size_t kJusquAuBout = std::string_view::npos;

// A step of the walk: how far it goes in the text and in the formula. Neither: they don't belong together.
struct Pas {
    std::size_t texte = 0;
    std::size_t formule = 0;
};

// The walk through a text and the formula that was made of it.
class Marche {
public:
    Marche(std::string_view texte, std::string_view formule, std::size_t depart, int virgules)
        : texte_(texte), formule_(formule), i_(depart), virgules_(virgules) {}

    std::size_t place() const { return i_; }
    std::size_t rang() const { return j_; }
    bool finie() const { return j_ >= formule_.size(); }

    // Goes one step on; false when the two don't belong together.
    bool avance() {
        const Pas pas = pas_suivant();
        if (pas.formule == 0) return false;
        i_ += pas.texte;
        j_ += pas.formule;
        return true;
    }

private:
    // The count 1 of a group that has none was put in, in front of ";" and ")".
    bool effectif_mis(char c) const {
        return virgules_ >= 0 && compte_ == virgules_ && (c == ';' || c == ')') && formule_.substr(j_).starts_with(",1");
    }

    Pas pas_suivant() {
        const char c = i_ < texte_.size() ? capitale(texte_[i_]) : '\0';
        const char f = formule_[j_];
        if (effectif_mis(c)) {
            ++compte_;
            return {0, 2};
        }
        if (c == ';' && f == ',') compte_ = 0;
        if (c == f || (c == ';' && f == ',')) {
            if (c == ',') ++compte_;
            return {1, 1};
        }
        if (c == kCarreEcrit && formule_.substr(j_).starts_with("^2")) return {1, 2};
        if (f == '*' && est_lettre(c)) return {0, 1};
        return {};
    }

    std::string_view texte_, formule_;
    std::size_t i_, j_ = 0;
    int virgules_;        // commas of a group whose count is missing; -1: the formula has no groups
    int compte_ = 0;      // commas of the group so far
};

// Commas of a group whose count is missing in this formula; -1: it has no groups.
int virgules_de_groupe(std::string_view formule) {
    const std::size_t appel = formule.find(kMotStatX.mot);
    if (appel == std::string_view::npos) return -1;
    return formule.substr(appel).starts_with(kMotStatXY.mot) ? 1 : 0;
}

// The piece, when the whole formula stands in the text from `depart` on.
Morceau morceau_depuis(std::string_view texte, std::string_view formule, std::size_t depart, int virgules,
                       std::size_t debut, std::size_t fin) {
    Marche marche(texte, formule, depart, virgules);
    Morceau morceau;
    while (!marche.finie()) {
        if (marche.rang() + 1 <= debut) morceau.debut = marche.place();
        if (marche.rang() + 1 <= fin) morceau.fin = marche.place();
        if (!marche.avance()) return {};
    }
    // Behind its last character, where the end mark stood, nothing is left of the text's formula.
    if (debut > formule.size()) morceau.debut = marche.place();
    if (fin > formule.size()) morceau.fin = marche.place();
    return morceau;
}

// The words of the first report; where there was none, the result of the line, or the last box.
std::string premiers_mots(std::int16_t numero) {
    if (moteur.faute.notee) return std::string(sans_egal(moteur.faute.mots));
    const std::string_view resultat = sans_egal(feuille.resultat_ligne(numero));
    return resultat.empty() ? boites_de_passe.derniere : std::string(resultat);
}

// The piece of `texte` (what the user wrote, without comment and old result) that the characters `debut` to in
// front of `fin` of `formule` (what the engine read, from 1) come from. The formula stands in the text at
// `decalage` or behind: capitals, "^2" for "²", "*" put in, the counts of groups put in.
Morceau morceau_du_texte(std::string_view texte, std::string_view formule, std::size_t decalage, std::size_t debut,
                         std::size_t fin) {
    const int virgules = virgules_de_groupe(formule);
    for (std::size_t depart = decalage; depart <= texte.size(); ++depart) {
        const Morceau morceau = morceau_depuis(texte, formule, depart, virgules, debut, fin);
        if (morceau.debut != Morceau::kAilleurs) return morceau;
    }
    return {};
}

// Puts the piece of the fault into that line; false when its formula doesn't come from there.
bool place_dans(std::int16_t numero, std::size_t decalage) {
    if (numero < 1 || numero > feuille.nombre_ligne) return false;
    const PremiereFaute& cause = moteur.faute;
    const Morceau piece = morceau_du_texte(feuille.formule_ligne(numero), cause.formule, decalage,
                                           static_cast<std::size_t>(cause.debut), static_cast<std::size_t>(cause.fin));
    if (piece.debut == Morceau::kAilleurs) return false;
    feuille.faute.colonne = piece.debut + 1;
    feuille.faute.longueur = piece.fin - piece.debut;
    return true;
}

// The line that the fault lies in, and its piece: the whole formula when the engine stood at no character of it.
std::int16_t place_la_cause(std::int16_t numero) {
    const PremiereFaute& cause = moteur.faute;
    const std::int16_t calculee = feuille.ligne_courante;
    std::int16_t ligne = cause.ligne > 0 ? cause.ligne : numero;
    if (cause.notee && cause.debut > 0) {
        if (cause.ligne > 0 && place_dans(ligne, cause.decalage)) return ligne;
        for (const int candidate : {static_cast<int>(numero), static_cast<int>(calculee), calculee + 1})
            if (cause.ligne == 0 && place_dans(static_cast<std::int16_t>(candidate), 0))
                return static_cast<std::int16_t>(candidate);
    }
    if (ligne < 1 || ligne > feuille.nombre_ligne) ligne = numero;
    feuille.faute.colonne = 1;
    const std::size_t formule = feuille.formule_ligne(ligne).size();
    feuille.faute.longueur = formule > 0 ? formule : kJusquAuBout;
    return ligne;
}

// Where the line of the last pass, an extent of the text that it wrote, stands in the present text: all above it or
// all below it is as it was.
std::size_t debut_actuel(std::string_view actuel, std::string_view ancien, const Etendue& ligne) {
    if (actuel.starts_with(ancien.substr(0, ligne.fin)) && est_fin_de_ligne(actuel, ligne.fin)) return ligne.debut;
    const std::string_view reste = ancien.substr(ligne.debut);
    if (!actuel.ends_with(reste)) return Morceau::kAilleurs;
    const std::size_t debut = actuel.size() - reste.size();
    return debut == 0 || actuel.substr(0, debut).ends_with("\r\n") ? debut : Morceau::kAilleurs;
}

}  // namespace

void garde_faute(int numero, std::size_t ecrite) {
    const auto lue = static_cast<std::int16_t>(numero);
    const std::int16_t ligne = place_la_cause(lue);
    const auto rang = static_cast<std::ptrdiff_t>(ecrite) - (numero - ligne);
    feuille.faute.ligne = static_cast<std::size_t>(std::max<std::ptrdiff_t>(rang, 1));
    feuille.faute.mots = premiers_mots(lue);
}

std::string_view mots_de_la_faute() {
    return feuille.faute.ligne > 0 ? feuille.faute.mots : boites_de_passe.derniere;
}

Morceau place_de_la_faute(std::string_view texte) {
    const FauteDePasse& faute = feuille.faute;
    if (faute.ligne == 0 || feuille.texte_ecrit.empty()) return {};
    const Etendue ligne = etendue_ligne(feuille.texte_ecrit, static_cast<std::int32_t>(faute.ligne));
    const std::size_t debut = debut_actuel(texte, feuille.texte_ecrit, ligne);
    if (debut == Morceau::kAilleurs) return {};
    const std::size_t piece = debut + faute.colonne - 1, reste = debut + ligne.fin - ligne.debut - piece;
    return {piece, piece + std::min(faute.longueur, reste)};
}
