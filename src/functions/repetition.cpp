// Runs the steps of a formula again and again, or its text. Changes the registers of `moteur` and the
// variable that the formula assigns.
#include "functions/repetition.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

#include "base/maths.hpp"
#include "engine/grammar.hpp"
#include "functions/formulas.hpp"
#include "functions/repetition_reader.hpp"
#include "functions/table.hpp"
#include "state/context.hpp"

namespace {

constexpr long kMarquesMaxi = 1 << 20;        // end marks that a formula can show to anyone

// A value that needs no report.
bool simple(double x) { return std::fabs(x) <= DBL_MAX; }

// p to the power e as the grammar does it; false when that needs a report.
bool puissance_de(double& p, double e) {
    if (p == 0) return e != -1;
    const double r = maths::exp(maths::log(std::fabs(p)) * e);
    if (p > 0) {
        p = r;
        return simple(r);
    }
    if (e != std::trunc(e) || std::fabs(e) > 2147483647.0) return false;
    p = odd(static_cast<std::int32_t>(e)) ? -r : r;
    return simple(r);
}

double valeur_de(int rang) { return moteur.valeur_variable[static_cast<std::size_t>(rang)]; }

// The function of x in place of x; false when that needs a report.
bool applique(const LigneFonction& f, double& x) {
    ArithmetiqueSimple calcul;
    if (f.domaine.exclut_simple != nullptr && f.domaine.exclut_simple(x, calcul)) return false;
    x = f.valeur.simple(x, calcul);
    return simple(x);
}

// The stack and the two shared cells of the grammar.
struct Registre {
    double* haut;        // top of the stack; its first place is never read
    double somme = 0;    // the running sum
    double sauve = 0;    // the save cell of the arguments
};

// Does one step; false when its value needs a report. The operand on the right of a popped one stays above
// the top until the next push.
[[gnu::always_inline]] inline bool fais(const Instruction& i, Registre& r) {
    switch (i.pas) {
        case Pas::constante: *++r.haut = i.valeur; return true;
        case Pas::variable: *++r.haut = valeur_de(i.rang); return true;
        case Pas::multiplie: --r.haut; return simple(r.haut[0] *= r.haut[1]);
        case Pas::divise: --r.haut; return r.haut[1] != 0 && simple(r.haut[0] /= r.haut[1]);
        case Pas::eleve: --r.haut; return puissance_de(r.haut[0], r.haut[1]);
        case Pas::somme: r.somme = *r.haut--; return true;
        case Pas::oppose: r.somme = -*r.haut--; return true;
        case Pas::ajoute: return simple(r.somme += *r.haut--);
        case Pas::retranche: return simple(r.somme -= *r.haut--);
        case Pas::ouvre: *++r.haut = r.somme; return true;
        case Pas::ferme: std::swap(r.somme, *r.haut); return true;
        case Pas::sauve: r.sauve = r.somme; return true;
        case Pas::argument: *++r.haut = std::exchange(r.somme, r.sauve); return true;
        case Pas::fonction: return applique(ligne_fonction(i.rang), *r.haut);
        case Pas::produit: return simple(*++r.haut = i.valeur * valeur_de(i.rang));
        case Pas::puissance: *++r.haut = valeur_de(i.rang); return puissance_de(*r.haut, i.valeur);
        case Pas::divise_par: return simple(*r.haut /= i.valeur);
        case Pas::ajoute_constante: return simple(r.somme += i.valeur);
        case Pas::argument_variable: r.sauve = r.somme; *++r.haut = valeur_de(i.rang); return true;
    }
    return false;
}

}  // namespace

Repetition::Repetition(int letter) : variable(letter) {
    try {
        FormuleLue lue = lis_repetition(letter);
        programme_ = resserre(lue.programme);
        cible_ = lue.cible;
    } catch (const std::bad_alloc&) {
        programme_.clear();
    }
}

double Repetition::valeur_variable() const {
    return moteur.valeur_variable[static_cast<std::size_t>(variable)];
}

bool Repetition::meme_valeur(double x) const {
    return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(dernier_x_);
}

double Repetition::evalue_programme(double x) {
    double resultat = 0;
    if (!calcule(resultat)) {
        // The text reports what is wrong here, after the traces of the values before.
        moteur.valeur_variable[static_cast<std::size_t>(variable)] = dernier_x_;
        termine();
        moteur.valeur_variable[static_cast<std::size_t>(variable)] = x;
        programme_.clear();
        return evalue_texte();
    }
    range_cible(resultat);
    ++en_attente_;
    avant_derniere_ = derniere_;
    avant_connue_ = connue_;
    connue_ = true;
    dernier_x_ = x;
    derniere_ = resultat;
    moteur.erreur_formule = false;
    return resultat;
}

double Repetition::evalue_texte() {
    // The end marks that stack up after the formula stop where nobody can see them any more.
    if (moteur.p_formule.size() > static_cast<std::size_t>(kMarquesMaxi) + 65536 &&
        moteur.p_formule.ends_with("@@"))
        moteur.p_formule.pop_back();
    return evalue_formule();
}

void Repetition::termine() noexcept {
    if (en_attente_ == 0) return;
    try {
        moteur.p_formule.append(static_cast<std::size_t>(std::min(en_attente_ - 1, kMarquesMaxi)),
                                '@');
    } catch (const std::bad_alloc&) {
        // The marks show to nobody but a refused matrix letter; the last evaluation adds its own.
    }
    en_attente_ = 0;
    connue_ = false;
    // The running sum and the assigned variable still hold the values before: a first argument puts
    // them aside.
    if (avant_connue_) moteur.l_valeur_expression = avant_derniere_;
    if (cible_ != 0) moteur.valeur_variable[static_cast<std::size_t>(cible_)] = avant_cible_;
    evalue_formule();
}

bool Repetition::calcule(double& resultat) const {
    std::array<double, kHauteurPile + 2> pile;
    Registre r{pile.data()};
    for (const Instruction& i : programme_)
        if (!fais(i, r)) return false;
    resultat = r.somme;
    return true;
}

void Repetition::range_cible(double valeur) {
    if (cible_ == 0) return;
    const auto rang = static_cast<std::size_t>(cible_);
    avant_cible_ = moteur.valeur_variable[rang];
    moteur.valeur_variable[rang] = valeur;
    moteur.variable_definie[rang] = true;
}
