// One line of the sheet: the old result after it goes, the rest is calculated in the form that its
// marks call for. Changes `feuille` and the context.
#include "sheet/line.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "functions/user_function.hpp"
#include "platform/boxes.hpp"
#include "sheet/data_definition.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/rendering.hpp"
#include "sheet/statistics_results.hpp"
#include "sheet/tabulation.hpp"
#include "state/context.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

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
    const auto controle = std::find_if(formule.begin(), formule.end(), [](char c) {
        return static_cast<unsigned char>(c) < 32;
    });
    if (controle == formule.end()) return false;
    montre_boite(std::string("code < 32 en colonne "_fr) +
                      chiffres(controle - formule.begin() + 1));
    moteur.erreur_formule = true;
    return true;
}

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
    Tente(kCalculChaine, [&] { feuille.resultat_ligne(numero) = texte; });
    moteur.erreur_formule = true;
    return true;
}

// Puts " = " and the error's words after the line.
void pose_erreur(std::int16_t numero) {
    Tente(kCalculChaine, [&] {
        (feuille.resultat_ligne(numero) = " = ") += moteur.l_texte_erreur;
    });
}

// A row of an open matrix.
void calcule_rangee(std::int16_t numero) {
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

// Evaluates p_formule and writes the line's result, or its error. A failure that nothing has put
// into words is called ambiguous, unless the reader stood on the end mark.
void calcule_formule(std::int16_t numero, std::string_view genre) {
    Tente(kCalculChaine, [&] { feuille.valeur_ligne(numero) = evalue_formule(); });
    if (moteur.erreur_formule) {
        if (moteur.l_texte_erreur.empty() && moteur.l_symbole != "@")
            moteur.l_texte_erreur = "Chaine ambigue"_fr;
        pose_erreur(numero);
        moteur.l_texte_erreur.clear();
        return;
    }
    affiche_valeur(numero);
    if (!genre.empty()) ajoute_resultats_stat(genre);
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
        std::string& formule = feuille.formule_ligne(numero);
        formule.assign(ligne, 0, ligne.find('!'));
        correct = !refuse_controle(formule);
    });
}

void prepare_formule(const std::string& texte) {
    std::string& formule = moteur.p_formule;
    const std::string_view garde = sans_blancs(texte);
    constexpr char kCarreEcrit = "²"_fr[0];
    if (garde.find(kCarreEcrit) == npos) {
        range_capitales(formule, garde);
        return;
    }
    formule.clear();
    for (const char c : garde) {
        if (c == kCarreEcrit)
            formule += "^2";
        else
            formule += capitale(c);
    }
}

void calcul_chaine(std::int16_t numero) noexcept {
    feuille.ligne_courante = numero;
    if (!Tente(kCalculChaine, [&] { prepare_formule(feuille.formule_ligne(numero)); })) return;
    const TexteMarque formule(moteur.p_formule);
    if (formule.contient(kDefFonction)) {
        DefFon();
        return;
    }
    if (refuse_sans_resultat(formule, numero)) return;
    const std::size_t limite = std::min(moteur.p_formule.find('!'), moteur.p_formule.size());
    const std::string_view genre = genre_ligne(formule, limite);
    if (!genre.empty()) {
        bool complete = false;
        Tente(kCalculChaine, [&] { complete = TestEffectif(genre); });
        if (!complete) return;
    } else if (calcule_tabulation(formule, numero, limite)) {
        return;
    } else if (definition_de_matrice.definition_matrice) {
        calcule_rangee(numero);
        return;
    } else {
        Tente(kCalculChaine, [] { TestVariable(); });
    }
    calcule_formule(numero, genre);
}
