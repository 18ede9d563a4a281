// Turns the forms of a data set into calls that the engine reads. Changes `statistiques`, the
// formula of the line that carries the call, and p_formule.
#include "sheet/data_definition.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "sheet/line.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/formula_error.hpp"
#include "state/sheet.hpp"

namespace {

constexpr Procedure kTestStatX{"sur TestStatX"_fr, true};
constexpr Procedure kFinDefinition{"sur FinDefinitionStatX"_fr, true};
constexpr Procedure kRangeChiffre{"sur RangeChiffreStatX"_fr, true};
constexpr Procedure kRangeStatxy{" sur RangeStatxy"_fr, false};

constexpr char kRetour = '\r';

bool trouve(std::string_view texte, std::string_view mot) {
    return texte.find(mot) != std::string_view::npos;
}

// True when a line, given in capitals, is the heading of a STATX block.
bool ouvre_bloc(std::string_view majuscule) {
    return trouve(majuscule, "STATX") && !trouve(majuscule, "STATXY") &&
           !trouve(majuscule, "TRISTATX") && !trouve(majuscule, "(") && !trouve(majuscule, "FIN");
}

// Opens a STATX block on a heading line.
void ouvre_definition(std::int16_t numero_ligne) {
    statistiques.definition_statx = true;
    statistiques.statx_trie = true;
    statistiques.ligne_definition_statx = numero_ligne;
    Tente(kTestStatX, [] {
        statistiques.position_definition_statx =
            vers_32_tronque(static_cast<double>(feuille.texte_reconstruit.size()));
    });
    statistiques.texte_definition_statx.clear();
}

// Adds the shortest text that the engine reads back to the same number.
void ajoute_valeur(std::string& sortie, double valeur) {
    std::array<char, 32> texte;
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), valeur);
    sortie.append(texte.data(), ecrit.ptr);
}

// The call of the closed block: its `nombre` values, each counting once. An empty block gives a
// call that isn't closed, which its calculation refuses.
std::string appel_statx(std::int32_t nombre) {
    std::string appel = "statx(";
    for (std::int32_t i = 1; i <= nombre; ++i) {
        ajoute_valeur(appel, statistiques.table_x(i));
        appel += i == nombre ? ",1)" : ",1;";
    }
    return appel;
}

// Counts one more value on a data line. When `ouvre_suivante` is set, another data line follows.
void compte_valeur(std::int16_t& ligne, bool ouvre_suivante) {
    Table<std::int16_t>& comptes = statistiques.table_statx;
    Tente(kFinDefinition, [&] { comptes(ligne) = vers_16_tronque(comptes(ligne) + 1); });
    if (!ouvre_suivante) return;
    Tente(kFinDefinition, [&] { ligne = vers_16_tronque(ligne + 1); });
    Tente(kFinDefinition, [&] { comptes.redimensionne(static_cast<std::size_t>(ligne)); });
}

// Tells where the element lies that has failed: behind `dessus`, the block's text in front of it.
void place_element(std::string_view dessus) {
    const auto lignes = static_cast<std::int16_t>(std::count(dessus.begin(), dessus.end(), kRetour));
    const std::size_t retour = dessus.rfind(kRetour);
    place_faute(static_cast<std::int16_t>(statistiques.ligne_definition_statx + lignes + 1),
                retour == std::string_view::npos ? dessus.size() : dessus.size() - retour - 1);
}

// Evaluates each element of the block's text and counts the values of each data line. Gives the
// number of values, or -1 when one was refused.
std::int32_t lis_valeurs() {
    const std::string_view texte = statistiques.texte_definition_statx;
    std::int16_t ligne = 1;
    std::int32_t nombre = 0;
    std::size_t debut = 0;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        if (texte[i] != kRetour && texte[i] != ',') continue;
        RangeChiffreStatX(texte.substr(debut, i - debut), ++nombre);
        if (moteur.erreur_formule) {
            place_element(texte.substr(0, debut));
            return -1;
        }
        debut = i + 1;
        compte_valeur(ligne, texte[i] == kRetour && debut < texte.size());
    }
    return nombre;
}

// The elements of a list. The last character belongs to the last element whatever it is: a closing
// comma stays in it, and the engine will refuse it.
std::vector<std::string_view> coupe_liste(std::string_view ligne) {
    std::vector<std::string_view> elements;
    std::size_t debut = 0;
    for (std::size_t i = 0; i + 1 < ligne.size(); ++i) {
        if (ligne[i] != ',') continue;
        elements.push_back(ligne.substr(debut, i - debut));
        debut = i + 1;
    }
    if (!ligne.empty()) elements.push_back(ligne.substr(debut));
    return elements;
}

// The call of two lists of the same length, each pair counting once.
std::string appel_statxy(const std::vector<std::string_view>& x,
                         const std::vector<std::string_view>& y) {
    std::string appel = "statxy(";
    for (std::size_t i = 0; i < x.size(); ++i) {
        appel.append(x[i]).append(",").append(y[i]);
        appel += i + 1 == x.size() ? ",1)" : ",1;";
    }
    return appel;
}

}  // namespace

bool TestStatX(std::int16_t numero_ligne) noexcept {
    std::string majuscule;
    Tente(kTestStatX, [&] { majuscule = capitales(feuille.formule_ligne(numero_ligne)); });
    if (!ouvre_bloc(majuscule)) return false;
    if (statistiques.definition_statx) {
        affiche_erreur_formule("StatX précédente non terminée"_fr);
        statistiques.definition_statx = false;
        return false;
    }
    ouvre_definition(numero_ligne);
    return true;
}

void FinDefinitionStatX() noexcept {
    statistiques.definition_statx = false;
    Tente(kFinDefinition, [] { statistiques.table_statx = Table<std::int16_t>(1); });
    const std::int32_t nombre = lis_valeurs();
    if (nombre < 0) return;
    Tente(kFinDefinition, [nombre] {
        feuille.formule_ligne.pose(statistiques.ligne_definition_statx, appel_statx(nombre));
    });
    calcul_chaine(statistiques.ligne_definition_statx);
}

void RangeChiffreStatX(std::string_view element, std::int32_t index) noexcept {
    double valeur = 0;
    if (element.find_first_not_of("0123456789.-") == std::string_view::npos)
        Tente(kRangeChiffre, [&] { valeur = prefixe_numerique(element); });
    else
        valeur = evalue_element(kRangeChiffre, element);
    if (moteur.erreur_formule) {
        Tente(kRangeChiffre,
              [&] { moteur.l_texte_erreur = std::string("erreur élément "_fr).append(element); });
        statistiques.definition_statx = false;
        return;
    }
    Tente(kRangeChiffre, [index] { statistiques.table_x.redimensionne(index); });
    Tente(kRangeChiffre, [index, valeur] { statistiques.table_x.remplit(index, valeur); });
}

void rangeStatxy(std::string_view ligne_x, std::string_view ligne_y,
                 std::int16_t numero_ligne) noexcept {
    std::vector<std::string_view> x, y;
    Tente(kRangeStatxy, [&] { x = coupe_liste(ligne_x); });
    Tente(kRangeStatxy, [&] { y = coupe_liste(ligne_y); });
    if (x.size() != y.size()) {
        std::string texte;
        Tente(kRangeStatxy, [&] {
            texte = std::string("Nombre des x="_fr) + chiffres(static_cast<long long>(x.size()));
            texte.append(" différent des y="_fr) += forme_blanc(static_cast<double>(y.size()));
        });
        affiche_erreur_formule(texte);
        place_faute(static_cast<std::int16_t>(numero_ligne + 2), 0);
        return;
    }
    Tente(kRangeStatxy, [&] { feuille.formule_ligne.pose(numero_ligne, appel_statxy(x, y)); });
    calcul_chaine(numero_ligne);
}
