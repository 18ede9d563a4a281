// The operations into which a formula of plain arithmetic is read, for many values at once: each takes one or two
// cells and leaves its value in a third; a cell holds a block of values, one for each value of the variable.
// Holds no state beyond the reading of one formula. What holds for every program:
// - the operations are those of the grammar, in its order; what the grammar's stack and its two shared cells
//   hold is known when the formula is read, so nothing is left of them here;
// - no operation writes into a cell that it reads, and none writes into kCaseVariable;
// - a variable is one that has a value, a function one that has a formula, a literal is finite.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

inline constexpr std::size_t kCasesMaxi = 66;   // cells; deeper formulas are read each time
inline constexpr std::int16_t kCaseVariable = 0;    // the cell of the variable that changes
inline constexpr std::int16_t kAucuneCase = -1;

enum class Genre : std::uint8_t {
    constante, oppose, ajoute, retranche, multiplie, divise, eleve, radians,
    exponentielle, logarithme, sinus, cosinus, racine, absolue,
    fonction         // any other: one value after the other
};

struct Operation {
    Genre genre;
    std::int16_t resultat;               // cells
    std::int16_t gauche = kAucuneCase, droite = kAucuneCase;
    std::int16_t rang = 0;               // of a function
    double valeur = 0;                   // of a constant; half a turn in the unit of angles
    double pi = 0;
};

struct Programme {
    std::vector<Operation> operations;
    std::int16_t cases = 1;                  // how many cells there are
    std::int16_t resultat = kAucuneCase;     // where the value of the formula stands; none: it was refused
};

// Makes the operations of a formula while its symbols are read. The stack of values and the two shared cells of the
// grammar, the running sum and the save cell of the arguments, hold the places of their values.
class Assembleur {
public:
    void constante(double valeur) { empile(pose({.genre = Genre::constante, .resultat = 0, .valeur = valeur})); }
    void variable() { empile(kCaseVariable); }
    void deux(Genre genre);                  // the two upper values of the stack
    void commence_somme(bool opposee);       // the running sum starts with the popped value, or its opposite
    void cumule(Genre genre);                // the popped value goes into the running sum
    void ouvre() { empile(somme_); }         // "(": the running sum is put aside
    void ferme();                            // ")": the sum is the value, the one aside comes back
    void sauve() { prends(sauve_, somme_); } // an argument: the running sum goes to the save cell
    void argument();                         // the argument is the sum; the sum comes back from the save cell
    void un(Genre genre, int rang = 0, double valeur = 0, double pi = 0);   // the upper value becomes its function

    // The program; its result is none when it needs too many cells.
    Programme finis();

private:
    std::int16_t libre();
    std::int16_t pose(Operation operation);
    void prends(std::int16_t& place, std::int16_t valeur);
    void empile(std::int16_t valeur);
    std::int16_t depile();
    void lache(std::int16_t valeur);

    Programme programme_;
    std::vector<std::int16_t> pile_;
    std::vector<int> emplois_ = {1};         // how many places hold each cell; the variable's is never free
    std::int16_t somme_ = kAucuneCase, sauve_ = kAucuneCase;
};
