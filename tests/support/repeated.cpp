// The two ways of evaluating a formula many times, each from the same beginning.
#include "state/pass_result.hpp"
#include "support/repeated.hpp"

#include <bit>
#include <utility>

#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "functions/repetition.hpp"
#include "platform/patience.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "support/memory.hpp"

namespace {

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

// A fresh context with A, B and X defined and the formula ready.
void prepare(const std::string& formule, int unite) {
    memoire.boites.clear();
    memoire.journal.clear();
    reinitialise_moteur();
    matrices = Matrices{};
    statistiques = Statistiques{};
    reinitialise_feuille();
    patience = Patience{};
    modes.unite_angle = static_cast<std::int16_t>(unite);
    for (const int v : {1, 2, 24}) moteur.variable_definie[static_cast<std::size_t>(v)] = true;
    moteur.valeur_variable[1] = 2.5;
    moteur.valeur_variable[2] = -3;
    moteur.p_formule = formule;
    TestVariable();
    moteur.muet_erreur = true;
}

Trace releve(std::vector<std::uint64_t> valeurs, std::vector<bool> erreurs) {
    Trace t;
    t.valeurs = std::move(valeurs);
    t.erreurs = std::move(erreurs);
    t.boites = memoire.boites;
    t.formule = moteur.p_formule;
    t.symbole = moteur.l_symbole;
    t.texte_erreur = moteur.l_texte_erreur;
    for (const double x :
         {moteur.l_valeur, moteur.l_valeur_expression, moteur.l_sauve_expression,
          moteur.l_valeur_facteur, moteur.l_valeur_not, moteur.l_valeur_exposant,
          moteur.l_valeur_terme, moteur.l_valeur_egalite, moteur.l_argument1})
        t.contexte.push_back(bits(x));
    for (std::size_t i = 1; i <= 26; ++i) {
        t.contexte.push_back(bits(moteur.valeur_variable[i]));
        t.contexte.push_back(moteur.variable_definie[i]);
    }
    t.contexte.push_back(static_cast<std::uint64_t>(moteur.p_position));
    t.contexte.push_back(static_cast<std::uint64_t>(moteur.l_var));
    return t;
}

template <class Evalue>
Trace parcourt(const std::vector<double>& points, Evalue&& evalue) {
    std::vector<std::uint64_t> valeurs;
    std::vector<bool> erreurs;
    for (const double x : points) {
        moteur.valeur_variable[24] = x;
        const double valeur = evalue();
        erreurs.push_back(moteur.erreur_formule);
        valeurs.push_back(moteur.erreur_formule ? 0 : bits(valeur));
        if (moteur.erreur_formule) break;   // as the tabulation and the area do
    }
    return releve(valeurs, erreurs);
}

}  // namespace

Trace par_le_texte(const std::string& formule, int unite, const std::vector<double>& points) {
    prepare(formule, unite);
    return parcourt(points, [] { return evalue_formule(); });
}

Trace par_repetition(const std::string& formule, int unite, const std::vector<double>& points) {
    prepare(formule, unite);
    Repetition repetition(24);
    Trace t = parcourt(points, [&] { return repetition.evalue(); });
    repetition.termine();
    return releve(t.valeurs, t.erreurs);
}

Trace par_blocs(const std::string& formule, int unite, const std::vector<double>& points, Jeu jeu) {
    prepare(formule, unite);
    const Jeu habituel = std::exchange(jeu_de_boucles, jeu);
    Repetition repetition(24);
    std::vector<double> valeurs(points.size());
    if (repetition.evalue_bloc(points.data(), valeurs.data(), points.size())) {
        Trace t;
        for (std::size_t i = 0; i < points.size(); ++i) {
            repetition.note(points[i], valeurs[i]);
            t.valeurs.push_back(bits(valeurs[i]));
        }
        repetition.termine();
        jeu_de_boucles = habituel;
        return releve(t.valeurs, std::vector<bool>(points.size(), false));
    }
    Trace t = parcourt(points, [&] { return repetition.evalue(); });
    repetition.termine();
    jeu_de_boucles = habituel;
    return releve(t.valeurs, t.erreurs);
}
