// The same formula evaluated many times while one variable changes (tabulation, area): in blocks of values where it
// has operations, otherwise by its text. What holds between two evaluations:
// - the values and errors are those of evaluating the text each time, bit for bit;
// - what evaluating would leave in `moteur` beside the value, the assigned variable and the error flag is owed
//   (en_attente_ counts the evaluations) and left by `termine`, which evaluates the text for the last one;
// - a value that needs a report ends the operations for good: what is owed is left, and the text takes over.
#pragma once

#include <cstddef>
#include <vector>

#include "base/maths.hpp"
#include "functions/repetition_steps.hpp"

class Repetition {
public:
    const int variable;      // number of the letter that changes, 1 to 26

    // Takes the formula in p_formule, ready for evalue_formule; `letter` changes between evaluations
    // and nothing else does.
    explicit Repetition(int letter);
    ~Repetition() { termine(); }
    Repetition(const Repetition&) = delete;
    Repetition& operator=(const Repetition&) = delete;

    // Value of the formula now, like evalue_formule.
    double evalue();

    // Values where the variable has those of x, at most kTailleBloc. False when one of them needs a report or the text
    // is read each time: then `evalue` is to be asked for one after the other. Leaves nothing behind: what is
    // used of it must be noted, in the order in which it would have been evaluated.
    bool evalue_bloc(const double* x, double* y, std::size_t n);

    // Notes that the variable has become x and that the formula was evaluated there.
    void note(double x, double valeur);
    // The same for so many evaluations at once, of which the last two are known.
    void note_serie(double x_avant, double valeur_avant, double x, double valeur, long nombre);

    // To be called when the evaluations are over: leaves `moteur` as the last one leaves it.
    void termine() noexcept;

private:
    bool par_le_texte() const { return programme_.resultat == kAucuneCase; }
    double evalue_texte();
    void rends_au_texte(double x);
    void range_cible(double valeur);

    Programme programme_;
    std::vector<double> cases_;            // of kTailleBloc values each
    int cible_ = 0;                        // variable that the formula assigns, 1 to 26; 0 for none
    long en_attente_ = 0;                  // evaluations whose traces are still to be left
    bool connue_ = false;                  // derniere_ is the value at dernier_x_
    double dernier_x_ = 0;
    double derniere_ = 0;
    double avant_derniere_ = 0;            // what the evaluation before the last one gave
    bool avant_connue_ = false;
    double avant_cible_ = 0;               // what the assigned variable held before the last one
};
