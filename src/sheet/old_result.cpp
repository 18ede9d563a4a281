// What stays of a line in front of an old result. Changes the formula of the line, and
// erreur_formule.
#include "sheet/old_result.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "platform/boxes.hpp"
#include "sheet/marks.hpp"
#include "state/formula_error.hpp"
#include "state/matrices.hpp"
#include "state/pass_result.hpp"

namespace {

constexpr Procedure kEffaceEgalite{" sur effaceEgalite"_fr, false};

constexpr auto npos = std::string_view::npos;

// True when the line's head names a matrix: "M" and a letter A to J, in any case.
bool tete_matrice(std::string_view ligne) {
    if (ligne.size() < 4 || capitale(ligne[0]) != 'M') return false;
    const char lettre = capitale(ligne[1]);
    return TestCarMatrice(std::string_view(&lettre, 1));
}

bool est_definition_fonction(std::string_view ligne, Signes signes) {
    return kDefFonction.possible(signes) && capitales(ligne).find(kDefFonction.mot) != npos;
}

// True for a comment and for the echo of a statistics result: they never carry a result of their own.
bool est_sans_resultat(std::string_view ligne, Signes signes) {
    return ligne.starts_with('!') || ((signes & kSigneVirgule) != 0 && ligne.find(", X=") != npos);
}

// Length of what stays in front of an old result, or npos when the line has none. The head of a line
// protects its own "=": two columns, four for a matrix, eight for a function definition, which is
// cut one column earlier since its result always stands as a blank and "=".
std::size_t longueur_gardee(std::string_view ligne, Signes signes) {
    if ((signes & kSigneEgal) == 0) return npos;
    if (tete_matrice(ligne)) return ligne.find('=', 4);
    if (est_definition_fonction(ligne, signes)) {
        const std::size_t egal = ligne.size() >= 9 ? ligne.find('=', 8) : npos;
        return egal == npos ? npos : egal - 1;
    }
    return ligne.size() >= 3 ? ligne.find('=', 2) : npos;
}

// Refuses the first control character of the formule: box with its column.
bool refuse_controle(std::string_view formule) {
    const auto controle = std::find_if(formule.begin(), formule.end(),
                                       [](char c) { return static_cast<unsigned char>(c) < 32; });
    if (controle == formule.end()) return false;
    const auto colonne = controle - formule.begin() + 1;
    const std::string texte = std::string("code < 32 en colonne "_fr) + chiffres(colonne);
    note_faute_caractere(texte, formule, static_cast<std::int16_t>(std::min<std::ptrdiff_t>(colonne, 32766)));
    montre_boite(texte);
    marque_erreur_formule();
    return true;
}

}  // namespace

std::size_t fin_gardee(std::string_view ligne) {
    const Signes signes = signes_de(ligne);
    return est_sans_resultat(ligne, signes) ? npos : longueur_gardee(ligne, signes);
}

void effaceEgalite(std::string_view& ligne, Signes signes, std::int16_t numero, bool& correct) noexcept {
    correct = true;
    if (est_sans_resultat(ligne, signes)) return;
    Tente(kEffaceEgalite, [&] {
        const std::size_t gardee = longueur_gardee(ligne, signes);
        if (gardee != npos) ligne = sans_blancs(ligne.substr(0, gardee));
    });
    Tente(kEffaceEgalite, [&] {
        const std::string_view formule = ligne.substr(0, (signes & kSigneExclamation) != 0 ? ligne.find('!') : npos);
        pose_formule(numero, formule);
        correct = (signes & kSigneControle) == 0 || !refuse_controle(formule);
    });
}

std::string_view sans_egal(std::string_view resultat) {
    return resultat.substr(std::min(resultat.find_first_not_of(" ="), resultat.size()));
}
