// The same formula evaluated many times while one variable changes (tabulation, area). What depends
// on the text alone is read once; the effects on `moteur` are those of evaluating the text each time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// One step of a formula that has been read. The registers are a pile of values and the two shared
// cells of the grammar: the running sum (l_valeur_expression) and the one save cell of the arguments.
enum class Pas : std::uint8_t {
    constante,       // push a literal
    variable,        // push the value of a variable
    multiplie,       // pop the right side, multiply the top by it
    divise,
    eleve,
    somme,           // the running sum starts with the popped value
    oppose,          // ... with its opposite
    ajoute,          // add the popped value to the running sum
    retranche,
    ouvre,           // "(": push the running sum aside
    ferme,           // ")": the sum is the value, the one aside comes back
    sauve,           // function argument: the running sum goes to the save cell
    argument,        // the argument is the sum; the sum comes back from the save cell
    fonction,        // the top becomes its function
    // Frequent sequences as one step each, with the same arithmetic in the same order:
    produit,             // push literal * variable
    puissance,           // push variable ^ literal
    divise_par,          // divide the top by a literal that is not 0
    ajoute_constante,    // add a literal to the running sum
    argument_variable    // sauve, variable, somme, argument
};

struct Instruction {
    Pas pas;
    std::int16_t rang;       // variable 1 to 26, or function number
    double valeur;           // of a literal
};

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

    std::vector<Instruction> programme_;   // empty: the text is read each time
    int cible_ = 0;                        // variable that the formula assigns, 1 to 26; 0 for none
    long en_attente_ = 0;                  // evaluations whose traces are still to be left
    bool connue_ = false;                  // derniere_ is the value at dernier_x_
    double dernier_x_ = 0;
    double derniere_ = 0;
    double avant_derniere_ = 0;            // what the evaluation before the last one gave
    bool avant_connue_ = false;
    double avant_cible_ = 0;               // what the assigned variable held before the last one
};
