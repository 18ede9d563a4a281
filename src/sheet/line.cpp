// One line of the sheet is calculated in the form that its marks call for. Changes `feuille` and the context.
#include "sheet/line.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "functions/user_function.hpp"
#include "sheet/group_counts.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/observer.hpp"
#include "sheet/old_result.hpp"
#include "sheet/rendering.hpp"
#include "sheet/statistics_results.hpp"
#include "sheet/tabulation.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "state/sheet.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

// Position of a mark in the formula, npos when it stands after `limite`.
std::size_t marque_avant(const TexteMarque& formule, const Marque& marque, std::size_t limite) {
    const std::size_t position = formule.position(marque);
    return position <= limite ? position : npos;
}

// "STATXY", "STATX" or nothing: which statistics the line asks for.
std::string_view genre_ligne(const TexteMarque& formule, std::size_t limite) {
    if (marque_avant(formule, kMotStatXY, limite) != npos) return kMotStatXY.mot;
    if (marque_avant(formule, kMotStatX, limite) != npos && !formule.contient(kMotTriStatX))
        return kMotStatX.mot;
    return {};
}

// Refuses RESXY and TRISTATX when no result stands above for them.
bool refuse_sans_resultat(const TexteMarque& formule, std::int16_t numero) {
    std::string_view texte;
    if (!feuille.statxy_present && formule.contient(kMotResXY))
        texte = " =statxy non présent"_fr;
    else if (!feuille.statx_present && formule.contient(kMotTriStatX))
        texte = " =statx non présent"_fr;
    else
        return false;
    Tente(kCalculChaine, [&] { feuille.resultat_ligne.pose(numero, texte); });
    moteur.erreur_formule = true;
    return true;
}

// Puts " = " and the error's words after the line.
void pose_erreur(std::int16_t numero) {
    Tente(kCalculChaine, [&] { feuille.resultat_ligne.pose(numero, " = " + moteur.l_texte_erreur); });
}

// A row of an open matrix.
void calcule_rangee(std::int16_t numero) {
    note_role(RoleLigne::rangee);
    fige_releve();
    RangeDefinitionMatrice();
    if (moteur.erreur_formule) pose_erreur(numero);
}

// The heading of a tabulation or an area; the letter after the word is the variable.
bool calcule_tabulation(const TexteMarque& formule, std::int16_t numero, std::size_t limite) {
    const bool inc = marque_avant(formule, kMotInc, limite) != npos;
    const std::size_t mot = inc ? formule.position(kMotInc) : marque_avant(formule, kMotAir, limite);
    if (mot == npos) return false;
    int variable = 0;
    Tente(kCalculChaine, [&] {
        if (mot + 3 >= formule.texte.size()) echoue(kHorsDomaine);   // no letter, no code
        variable = rang_lettre(formule.texte[mot + 3]);
    });
    Tente(kCalculChaine, [&] {
        if (inc)
            CalculInc(numero, variable);
        else
            Calculair(numero, variable);
    });
    return true;
}

// Evaluates p_formule, which has at most these signs, and writes the line's result, or its error. A failure that nothing
// has put into words is called ambiguous, unless the reader stood on the end mark.
void calcule_formule(std::int16_t numero, Signes signes, std::string_view genre) {
    if (genre.empty()) allege_releve();
    Tente(kCalculChaine, [&] { feuille.valeur_ligne(numero) = evalue_formule(); });
    fige_releve();
    if (moteur.erreur_formule) {
        if (moteur.l_texte_erreur.empty() && moteur.l_symbole != "@")
            moteur.l_texte_erreur = kChaineAmbigue;
        pose_erreur(numero);
        moteur.l_texte_erreur.clear();
        return;
    }
    affiche_valeur(numero, signes);
    if (!genre.empty()) ajoute_resultats_stat(genre);
}

// Writes the implicit products of p_formule, where it has some.
void place_produits(Signes signes) {
    if ((signes & kSigneProduit) != 0) Tente(kCalculChaine, [] { TestVariable(); });
}

// Calculates p_formule, whose marks or an open matrix may give the line another form than that of a formula.
void calcule_par_forme(std::int16_t numero, Signes signes) {
    const TexteMarque formule(moteur.p_formule, signes);
    if (formule.contient(kDefFonction)) {
        note_role(RoleLigne::fonction);
        fige_releve();
        DefFon();
        return;
    }
    if (refuse_sans_resultat(formule, numero)) return;
    const std::size_t limite = (signes & kSigneExclamation) != 0 ? moteur.p_formule.find('!') : moteur.p_formule.size();
    const std::string_view genre = genre_ligne(formule, limite);
    if (!genre.empty()) {
        bool complete = false;
        note_role(RoleLigne::statistiques);
        Tente(kCalculChaine, [&] { complete = TestEffectif(genre); });
        if (!complete) return;
    } else if (calcule_tabulation(formule, numero, limite)) {
        return;
    } else if (definition_de_matrice.definition_matrice) {
        calcule_rangee(numero);
        return;
    } else {
        place_produits(signes);
    }
    calcule_formule(numero, signes, genre);
}

}  // namespace

void calcul_chaine(std::int16_t numero) noexcept {
    feuille.ligne_courante = numero;
    Signes signes = 0;
    if (!Tente(kCalculChaine, [&] { signes = prepare_formule(feuille.formule_ligne(numero)); })) return;
    if ((signes & kLettresDeForme) != 0 || definition_de_matrice.definition_matrice) return calcule_par_forme(numero, signes);
    place_produits(signes);
    calcule_formule(numero, signes, {});
}
