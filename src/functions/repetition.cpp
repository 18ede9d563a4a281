// Runs the operations of a formula again and again, or its text. Changes the registers of `moteur`, the variable
// that changes and the one that the formula assigns.
#include "functions/repetition.hpp"

#include <algorithm>
#include <new>
#include <utility>

#include "engine/grammar.hpp"
#include "functions/block.hpp"
#include "functions/repetition_reader.hpp"
#include "state/context.hpp"

namespace {

constexpr long kMarquesMaxi = 1 << 20;        // end marks that a formula can show to anyone

double& valeur_de(int rang) { return moteur.valeur_variable[static_cast<std::size_t>(rang)]; }

}  // namespace

Repetition::Repetition(int letter) : variable(letter) {
    try {
        FormuleLue lue = lis_repetition(letter);
        cases_.resize(static_cast<std::size_t>(lue.programme.cases) * kTailleBloc);
        programme_ = std::move(lue.programme);
        cible_ = lue.cible;
    } catch (const std::bad_alloc&) {
        programme_ = {};
    }
}

double Repetition::evalue() {
    if (par_le_texte()) return evalue_texte();
    const double x = valeur_de(variable);
    double resultat = 0;
    if (!evalue_bloc(&x, &resultat, 1)) {
        rends_au_texte(x);
        return evalue_texte();
    }
    note(x, resultat);
    return resultat;
}

bool Repetition::evalue_bloc(const double* x, double* y, std::size_t n) {
    if (par_le_texte()) return false;
    double* cases = cases_.data();
    std::copy_n(x, n, cases);
    if (!calcule_bloc(programme_.operations.data(), programme_.operations.size(), cases, n)) return false;
    std::copy_n(cases + static_cast<std::size_t>(programme_.resultat) * kTailleBloc, n, y);
    return true;
}

void Repetition::note(double x, double valeur) {
    valeur_de(variable) = x;
    range_cible(valeur);
    ++en_attente_;
    avant_derniere_ = derniere_;
    avant_connue_ = connue_;
    connue_ = true;
    dernier_x_ = x;
    derniere_ = valeur;
    moteur.erreur_formule = false;
}

void Repetition::note_serie(double x_avant, double valeur_avant, double x, double valeur, long nombre) {
    if (nombre > 1) note(x_avant, valeur_avant);
    note(x, valeur);
    en_attente_ += std::max(nombre - 2, 0L);
}

// The text reports what is wrong at x, after the traces of the values before.
void Repetition::rends_au_texte(double x) {
    valeur_de(variable) = dernier_x_;
    termine();
    valeur_de(variable) = x;
    programme_ = {};
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

void Repetition::range_cible(double valeur) {
    if (cible_ == 0) return;
    const auto rang = static_cast<std::size_t>(cible_);
    avant_cible_ = moteur.valeur_variable[rang];
    moteur.valeur_variable[rang] = valeur;
    moteur.variable_definie[rang] = true;
}
