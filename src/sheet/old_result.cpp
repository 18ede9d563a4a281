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
#include "state/variables.hpp"

namespace {

constexpr Procedure kEffaceEgalite{" sur effaceEgalite"_fr, false};

constexpr auto npos = std::string_view::npos;

// True when the line's head names a matrix: "M" and a letter A to J, in any case.
bool tete_matrice(const std::string& ligne) {
    const char lettre = ligne.size() >= 4 ? capitale(ligne[1]) : '\0';
    return ligne.size() >= 4 && capitale(ligne[0]) == 'M' &&
           TestCarMatrice(std::string_view(&lettre, 1));
}

bool est_definition_fonction(const std::string& ligne) {
    return (lettres_de(ligne) & kDefFonction.lettres) == kDefFonction.lettres &&
           capitales(ligne).find(kDefFonction.mot) != npos;
}

// True for a comment and for the echo of a statistics result: they never carry a result of their own.
bool est_sans_resultat(const std::string& ligne) {
    return ligne.starts_with('!') || ligne.find(", X=") != npos;
}

// Length of what stays in front of an old result, or npos when the line has none. The head of a line
// protects its own "=": two columns, four for a matrix, eight for a function definition, which is
// cut one column earlier since its result always stands as a blank and "=".
std::size_t longueur_gardee(const std::string& ligne) {
    if (ligne.find('=') == npos) return npos;
    if (tete_matrice(ligne)) return ligne.find('=', 4);
    if (est_definition_fonction(ligne)) {
        const std::size_t egal = ligne.size() >= 9 ? ligne.find('=', 8) : npos;
        return egal == npos ? npos : egal - 1;
    }
    return ligne.size() >= 3 ? ligne.find('=', 2) : npos;
}

// Refuses the first control character of the formule: box with its column.
bool refuse_controle(const std::string& formule) {
    const auto est_controle = [](char c) { return static_cast<unsigned char>(c) < 32; };
    bool present = false;
    for (const char c : formule) present |= est_controle(c);   // many characters at once
    if (!present) return false;
    const auto controle = std::find_if(formule.begin(), formule.end(), est_controle);
    const auto colonne = controle - formule.begin() + 1;
    const std::string texte = std::string("code < 32 en colonne "_fr) + chiffres(colonne);
    note_faute_caractere(texte, formule, static_cast<std::int16_t>(std::min<std::ptrdiff_t>(colonne, 32766)));
    montre_boite(texte);
    marque_erreur_formule();
    return true;
}

}  // namespace

std::size_t fin_gardee(const std::string& ligne) {
    return est_sans_resultat(ligne) ? npos : longueur_gardee(ligne);
}

void effaceEgalite(std::string& ligne, std::int16_t numero, bool& correct) noexcept {
    correct = true;
    if (est_sans_resultat(ligne)) return;
    Tente(kEffaceEgalite, [&] {
        const std::size_t gardee = longueur_gardee(ligne);
        if (gardee == npos) return;
        ligne.resize(gardee);
        const std::string_view garde = sans_blancs(ligne);
        if (garde.size() != ligne.size()) ligne = std::string(garde);
    });
    Tente(kEffaceEgalite, [&] {
        std::string& formule = formule_de(numero);
        formule.assign(ligne, 0, ligne.find('!'));
        correct = !refuse_controle(formule);
    });
}
