// A silent pass over the sheet, and what is noted after each line of it. Puts back all that the pass changes.
#include "engine/reading.hpp"   // in front of the matrices, whose name one of its own hides
#include "exchange/sheet_report.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "exchange/mathml.hpp"
#include "exchange/shown_results.hpp"
#include "platform/hooks.hpp"
#include "platform/patience.hpp"
#include "sheet/aside.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/recalculation.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/sheet.hpp"
#include "state/variables.hpp"

namespace {

constexpr int kPointsDeCourbe = 240;

// The report that the pass fills in.
struct RapportEnCours {
    Rapport* rapport = nullptr;
    DonneesNotees donnees;
    bool avec_formules = false;
    std::size_t tirages = 0;             // random numbers up to the line before
};
RapportEnCours en_cours;

// The values of the function over the interval; its variable gets its own value back. A function that draws random
// numbers has no curve: each one would be another.
std::vector<PointTrace> courbe_de(const LigneRapport& ligne) {
    std::vector<PointTrace> courbe;
    const double debut = ligne.donnees.debut, fin = ligne.donnees.fin;
    if (!std::isfinite(fin - debut) || debut == fin) return courbe;
    double& variable_du_trace = moteur.valeur_variable[static_cast<std::size_t>(ligne.donnees.variable)];
    const double avant = variable_du_trace;
    const std::size_t tirages = hasard.tirages;
    for (int i = 0; i <= kPointsDeCourbe && !abandonne(); ++i) {
        const double x = debut + (fin - debut) * i / kPointsDeCourbe;
        variable_du_trace = x;
        const FormuleRelevee lue = lit_formule(ligne.fonction);
        const bool definie = !lue.erreur && std::isfinite(lue.valeur);
        courbe.push_back({x, definie ? std::optional(lue.valeur) : std::nullopt});
    }
    variable_du_trace = avant;
    if (hasard.tirages != tirages) courbe.clear();
    return courbe;
}

// The function of an INC or AIR line stands below it.
void note_fonction(LigneRapport& ligne) {
    if (ligne.numero >= feuille.nombre_ligne) return;
    ligne.fonction = feuille.formule_ligne(ligne.numero + 1);
    if (!en_cours.avec_formules) return;
    ligne.mathml_fonction = mathml(ligne.fonction, lit_formule(ligne.fonction));
    ligne.courbe = courbe_de(ligne);
}

// The user's own function is read with a value for its variable, since it has none yet.
void note_fonction_definie(LigneRapport& ligne) {
    const std::size_t egal = ligne.formule.find('=');
    const auto lettre = static_cast<std::size_t>(moteur.fonction_active);
    if (egal == std::string::npos || lettre == 0) return;
    ligne.fonction = sans_blancs(std::string_view(ligne.formule).substr(egal + 1));
    ligne.donnees.variable = moteur.fonction_active;
    if (!en_cours.avec_formules) return;
    const bool definie = std::exchange(moteur.variable_definie[lettre], true);
    ligne.mathml_fonction = mathml(ligne.fonction, lit_formule(ligne.fonction));
    moteur.variable_definie[lettre] = definie;
}

// The letter of the matrix that the line defines or gives, 0 for none.
char lettre_de_matrice(const LigneRapport& ligne) {
    if (ligne.definition) return definition_de_matrice.lettre_definition_matrice.empty()
                                     ? '\0' : definition_de_matrice.lettre_definition_matrice[0];
    const std::string& formule = moteur.p_formule;
    const bool une = formule.size() > 3 && formule[0] == 'M' && TestCarMatrice(formule.substr(1, 1));
    return une ? formule[1] : '\0';
}

// A data set, a table, a matrix or a number: what the line holds.
void note_contenu(LigneRapport& ligne) {
    ligne.donnees = std::exchange(en_cours.donnees, {});
    if (ligne.donnees.couples) {
        ligne.pente = variable('A');
        ligne.ordonnee = variable('B');
    }
    if (ligne.donnees.variable != 0) return note_fonction(ligne);
    if (!ligne.erreur && capitales(ligne.formule).find(kDefFonction.mot) != std::string::npos)
        return note_fonction_definie(ligne);
    if (!ligne.donnees.groupes.empty()) return;
    ligne.matrice = lettre_de_matrice(ligne);
    if (ligne.matrice != 0 && !ligne.erreur) {
        const TableMatrice* const table = table_de(ligne.matrice);
        if (table != nullptr && table->lignes() > 0) ligne.elements = *table;
        if (ligne.elements.lignes() == 0) ligne.matrice = 0;
    }
    if (en_cours.avec_formules && !ligne.definition)
        ligne.mathml = mathml(ligne.formule, lit_formule(ligne.formule));
}

// After each line that the pass has calculated. The rows of an open matrix belong to its heading.
void note_ligne(int numero) {
    if (en_cours.rapport == nullptr || definition_de_matrice.definition_matrice) return;
    try {
        LigneRapport ligne;
        ligne.hasard = hasard.tirages != en_cours.tirages;
        ligne.numero = numero;
        ligne.formule = feuille.formule_ligne(numero);
        ligne.resultat = feuille.resultat_ligne(numero);
        ligne.erreur = moteur.erreur_formule;
        ligne.definition = capitales(ligne.formule).find(kDefM.mot) != std::string::npos;
        if (en_cours.donnees.perdue) en_cours.rapport->complet = false;
        note_contenu(ligne);
        std::vector<LigneRapport>& lignes = en_cours.rapport->lignes;
        // The heading of two lists is calculated once more when they have been read: it is among the last.
        const auto place =
            std::find_if(lignes.rbegin(), lignes.rend(), [=](const LigneRapport& l) { return l.numero <= numero; });
        if (place != lignes.rend() && place->numero == numero)
            *place = std::move(ligne);
        else
            lignes.insert(place.base(), std::move(ligne));
    } catch (...) {   // no memory: the pass goes on
        en_cours.rapport->complet = false;
    }
    en_cours.tirages = hasard.tirages;   // noting has read formulas again
}

// The report of the sheet with the random numbers that come now. False when it was given up.
bool fais_rapport(const std::string& texte, bool avec_formules, Rapport& rapport) {
    const std::mt19937_64 generateur = moteur.generateur;
    Calcul calcul = calcule_feuille(texte, 0);
    rapport = Rapport{};
    rapport.texte = calcul.issue == Issue::ecrite ? std::move(calcul.texte) : texte;
    rapport.complet = !patience.abandonnee && calcul.issue != Issue::refusee;
    if (!rapport.complet) return false;
    // The lines of the calculated text are those that a second pass numbers.
    const std::string calcule = rapport.texte;
    moteur.generateur = generateur;
    en_cours = {&rapport, {}, avec_formules, hasard.tirages};
    notees = &en_cours.donnees;
    const auto avant = std::exchange(crochets.ligne_calculee, note_ligne);
    calcul = calcule_feuille(calcule, 0);
    crochets.ligne_calculee = avant;
    notees = nullptr;
    en_cours = {};
    if (calcul.issue == Issue::ecrite) rapport.texte = std::move(calcul.texte);
    if (patience.abandonnee) rapport.complet = false;
    return rapport.complet;
}

std::string nombre_de_ligne(int numero) { return ", ligne " + chiffres(numero); }

}  // namespace

Rapport rapport_de(const std::string& texte, bool avec_formules) {
    Rapport rapport;
    const CalculAPart a_part;
    const bool fait = fais_rapport(texte, avec_formules, rapport);
    // The last passes first: their random numbers may be those that the sheet shows.
    for (std::size_t i = 1; fait && i < hasard.nombre && contredit(rapport, texte); ++i) {
        moteur.generateur = hasard.debuts[i];
        if (!fais_rapport(texte, avec_formules, rapport)) return rapport;
        if (!contredit(rapport, texte)) hasard.montre(i);
    }
    if (fait && contredit(rapport, texte)) montre_ce_qui_est_ecrit(rapport, texte);
    return rapport;
}

TableDonnees table_des_groupes(const DonneesNotees& donnees) {
    TableDonnees table;
    table.titres = {"x"};
    if (donnees.couples) table.titres.emplace_back("y");
    const bool effectifs = std::any_of(donnees.groupes.begin(), donnees.groupes.end(),
                                       [](const GroupeNote& g) { return g.effectif != 1; });
    if (effectifs) table.titres.emplace_back("effectif");
    table.colonnes.resize(table.titres.size());
    for (const GroupeNote& groupe : donnees.groupes) {
        table.colonnes[0].push_back(groupe.x);
        if (donnees.couples) table.colonnes[1].push_back(groupe.y);
        if (effectifs) table.colonnes.back().push_back(groupe.effectif);
    }
    return table;
}

TableDonnees table_de_matrice(char lettre, const TableMatrice& elements) {
    TableDonnees table;
    for (int c = 1; c <= elements.colonnes(); ++c) {
        table.titres.push_back(std::string("M") + lettre + " colonne " + chiffres(c));
        table.colonnes.emplace_back();
        for (int l = 1; l <= elements.lignes(); ++l) table.colonnes.back().push_back(elements(l, c));
    }
    return table;
}

TableDonnees table_des_rangees(const DonneesNotees& donnees) {
    const char lettre = static_cast<char>('A' + donnees.variable - 1);
    TableDonnees table{{std::string(1, lettre), std::string("f(") + lettre + ")"}, {{}, {}}};
    for (const RangeeNotee& rangee : donnees.rangees) {
        table.colonnes[0].push_back(rangee.x);
        table.colonnes[1].push_back(rangee.y);
    }
    return table;
}

std::vector<DonneesDeFeuille> donnees_de(const Rapport& rapport) {
    std::vector<DonneesDeFeuille> toutes;
    for (const LigneRapport& ligne : rapport.lignes) {
        if (ligne.erreur) continue;
        const std::string lieu = nombre_de_ligne(ligne.numero);
        if (!ligne.donnees.rangees.empty())
            toutes.push_back({std::string("table de ") + static_cast<char>('A' + ligne.donnees.variable - 1) + lieu,
                              table_des_rangees(ligne.donnees)});
        else if (!ligne.donnees.groupes.empty())
            toutes.push_back({(ligne.donnees.couples ? "STATXY" : "STATX") + lieu, table_des_groupes(ligne.donnees)});
        else if (ligne.matrice != 0)
            toutes.push_back({std::string("matrice M") + ligne.matrice + lieu,
                              table_de_matrice(ligne.matrice, ligne.elements)});
    }
    return toutes;
}
