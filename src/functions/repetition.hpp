// The same formula evaluated many times while one variable changes (tabulation, area): by its steps where it
// has them, otherwise by its text. What holds between two evaluations:
// - the values and errors are those of evaluating the text each time, bit for bit;
// - what evaluating would leave in `moteur` beside the value, the assigned variable and the error flag is owed
//   (en_attente_ counts the evaluations) and left by `termine`, which evaluates the text for the last one;
// - a value that needs a report ends the steps for good: what is owed is left, and the text takes over.
#pragma once

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
    double evalue() {
        if (programme_.empty()) return evalue_texte();
        const double x = valeur_variable();
        if (connue_ && meme_valeur(x)) {
            ++en_attente_;
            avant_derniere_ = derniere_;
            avant_connue_ = true;
            avant_cible_ = derniere_;
            return derniere_;
        }
        return evalue_programme(x);
    }

    // To be called when the evaluations are over: leaves `moteur` as the last one leaves it.
    void termine() noexcept;

private:
    double valeur_variable() const;
    bool meme_valeur(double x) const;
    double evalue_texte();
    double evalue_programme(double x);
    bool calcule(double& resultat) const;
    void range_cible(double valeur);

    Programme programme_;                   // empty: the text is read each time
    int cible_ = 0;                        // variable that the formula assigns, 1 to 26; 0 for none
    long en_attente_ = 0;                  // evaluations whose traces are still to be left
    bool connue_ = false;                  // derniere_ is the value at dernier_x_
    double dernier_x_ = 0;
    double derniere_ = 0;
    double avant_derniere_ = 0;            // what the evaluation before the last one gave
    bool avant_connue_ = false;
    double avant_cible_ = 0;               // what the assigned variable held before the last one
};
