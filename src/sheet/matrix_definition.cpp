// Reading a matrix block row by row, and filling the matrix when it closes. Changes
// `definition_de_matrice`, `matrices`, `moteur` (evaluation, defined flags) and `feuille` (the
// result after the DEFM line).
#include "sheet/matrix_definition.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

DefinitionMatrice definition_de_matrice;

namespace {

constexpr Procedure kTest{"sur TestMatrice"_fr, true};
constexpr Procedure kRangeDefinition{"sur RangeDefinitionMatrice"_fr, true};
constexpr Procedure kFinDefinition{"sur FinDefinitionMatrice"_fr, true};
constexpr Procedure kRangeChiffre{"sur RangeChiffreMatrice"_fr, true};

// Up to `n` characters of a text from `debut` (0-based); nothing when the text is shorter.
std::string morceau(std::string_view texte, std::size_t debut, std::size_t n) {
    return debut < texte.size() ? std::string(texte.substr(debut, n)) : std::string();
}

// Opens an empty block for the line, and notes where its result will be inserted.
void ouvre_bloc(std::int16_t numero_ligne) noexcept {
    DefinitionMatrice& d = definition_de_matrice;
    d.definition_matrice = true;
    d.ligne_definition_matrice = numero_ligne;
    d.definition_lignes = 0;
    d.definition_colonnes = 0;
    d.texte_definition_matrice.clear();
    d.position_definition_matrice = static_cast<std::int32_t>(feuille.texte_reconstruit.size());
}

// Reports the letter after a DEFM at `defm`. Its five characters come from the formula calculated last, not
// from this line. Kept: see the oddities, defm-quotes-another-line.
void refuse_lettre(std::size_t defm) noexcept {
    std::string texte;
    Tente(kTest,
          [&] { texte = "matrice " + morceau(moteur.p_formule, defm + 4, 5) + " interdite"; });
    affiche_erreur_formule(texte);
}

// Columns of a row: a comma opens one more, except as the last character. 0 for an empty row.
int compte_colonnes(std::string_view rangee) {
    if (rangee.empty()) return 0;
    rangee.remove_suffix(1);
    return static_cast<int>(std::count(rangee.begin(), rangee.end(), ',')) + 1;
}

// Marks the open block's letter as defined. Refuses an empty letter with failure 5, and with failure 9
// one that a refused DEFM line has put in its place.
void marque_definie() {
    const std::string& lettre = definition_de_matrice.lettre_definition_matrice;
    if (lettre.empty()) echoue(kHorsDomaine);
    const int rang = rang_lettre(lettre[0]);
    if (rang < 1 || rang > kNombreMatrices) echoue(kIndice);
    moteur.matrice_definie[static_cast<std::size_t>(rang)] = true;
}

// The table of the letter under definition; nullptr for an empty letter, whose elements go nowhere.
TableMatrice* table_definie() noexcept {
    const std::string& lettre = definition_de_matrice.lettre_definition_matrice;
    return lettre.empty() ? nullptr : table_de(lettre[0]);
}

// Reports a row with another number of columns, and abandons the block.
void refuse_rangee(int trouve) noexcept {
    DefinitionMatrice& d = definition_de_matrice;
    Tente(kRangeDefinition, [&] {
        moteur.l_texte_erreur = std::string("Nombre de colonnes différents"_fr) +
                                forme_blanc(d.definition_colonnes) + forme_blanc(trouve);
    });
    moteur.erreur_formule = true;
    d.definition_matrice = false;
}

// Evaluates and stores the elements of all rows in order. False as soon as one has failed.
bool range_elements() noexcept {
    const std::string_view texte = definition_de_matrice.texte_definition_matrice;
    int ligne = 1, colonne = 1;
    std::size_t debut = 0, debut_ligne = 0;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const char c = texte[i];
        if (c != '\r' && c != ',') continue;
        RangeChiffreMatrice({texte.data() + debut, i - debut}, ligne, colonne);
        if (moteur.erreur_formule) {
            place_faute(static_cast<std::int16_t>(definition_de_matrice.ligne_definition_matrice + ligne),
                        debut - debut_ligne);
            return false;
        }
        debut = i + 1;
        colonne = c == ',' ? colonne + 1 : 1;
        if (c != '\r') continue;
        ++ligne;
        debut_ligne = debut;
    }
    return true;
}

// Leaves the words for an element that can't be evaluated. The row told is the number of rows of
// the whole block, not the element's own.
void refuse_element(int colonne) noexcept {
    DefinitionMatrice& d = definition_de_matrice;
    Tente(kRangeChiffre, [&] {
        moteur.l_texte_erreur = std::string("erreur élément"_fr) +
                                forme_blanc(d.definition_lignes) + forme_blanc(colonne);
    });
    d.definition_matrice = false;
}

}  // namespace

bool TestMatrice(std::int16_t numero_ligne) noexcept {
    DefinitionMatrice& d = definition_de_matrice;
    std::string majuscule;
    Tente(kTest, [&] { majuscule = capitales(feuille.formule_ligne(numero_ligne)); });
    const std::size_t defm = majuscule.find("DEFM");
    if (defm == std::string::npos) return false;
    Tente(kTest, [&] { d.lettre_definition_matrice = morceau(majuscule, defm + 4, 1); });
    if (!TestCarMatrice(d.lettre_definition_matrice)) {
        refuse_lettre(defm);
        return false;
    }
    if (d.definition_matrice) {
        affiche_erreur_formule("matrice précédente non terminée"_fr);
        d.definition_matrice = false;
        return false;
    }
    ouvre_bloc(numero_ligne);
    return true;
}

void RangeDefinitionMatrice() noexcept {
    DefinitionMatrice& d = definition_de_matrice;
    const int trouve = compte_colonnes(moteur.p_formule);
    Tente(kRangeDefinition,
          [&] { d.definition_lignes = vers_16_tronque(d.definition_lignes + 1); });
    // Counted first and stored once: a row beyond 16 bits shows one box, not one a comma.
    if (d.definition_lignes == 1)
        Tente(kRangeDefinition, [&] { d.definition_colonnes = vers_16_tronque(trouve); });
    if (trouve != d.definition_colonnes) {
        refuse_rangee(trouve);
        return;
    }
    Tente(kRangeDefinition, [&] { d.texte_definition_matrice += moteur.p_formule + '\r'; });
}

void FinDefinitionMatrice() noexcept {
    DefinitionMatrice& d = definition_de_matrice;
    d.definition_matrice = false;
    if (TableMatrice* table = table_definie())
        Tente(kFinDefinition,
              [&] { *table = TableMatrice(d.definition_lignes, d.definition_colonnes); });
    if (!range_elements()) return;
    Tente(kFinDefinition, [] { marque_definie(); });
    Tente(kFinDefinition, [&] {
        feuille.resultat_ligne.pose(d.ligne_definition_matrice,
                                    " =" + chiffres(d.definition_lignes) + "," + chiffres(d.definition_colonnes));
    });
    Tente(kFinDefinition, [&] {
        insere_texte_reconstruit(static_cast<std::size_t>(d.position_definition_matrice),
                                 feuille.resultat_ligne(d.ligne_definition_matrice));
    });
}

void RangeChiffreMatrice(std::string_view element, int ligne, int colonne) noexcept {
    double valeur = 0;
    // A plain number is read and not evaluated, so "1-2" is 1 and an empty element 0. Kept: see the
    // oddities, plain-elements.
    if (element.find_first_not_of("0123456789.-") == std::string_view::npos) {
        Tente(kRangeChiffre, [&] { valeur = prefixe_numerique(element); });
    } else {
        valeur = evalue_element(kRangeChiffre, element);
        if (moteur.erreur_formule) {
            refuse_element(colonne);
            return;
        }
    }
    if (TableMatrice* table = table_definie())
        Tente(kRangeChiffre, [&] { (*table)(ligne, colonne) = valeur; });
}
