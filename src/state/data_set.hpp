// The data set: its block in the sheet while it is being read, and its values. One instance,
// `statistiques`; the definition of a block, the statistics, the sort and the sheet pass change it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/table.hpp"

// A table numbered from 1 in which a repeated value stands once with the range that it fills, so
// that a frequency of a billion takes no memory. Seen from outside it is a plain table: an access
// outside its bounds is failure 9.
class TableRepetee {
public:
    struct Plage {
        double valeur;     // the value at every index of the range
        std::int32_t fin;  // last index of the range; it begins after the range before it
    };

    // Upper bound; 0 for a table that holds nothing.
    std::int32_t taille() const { return plages_.empty() ? 0 : plages_.back().fin; }
    // Makes `n` the upper bound: what fits stays, what is new is 0.
    void redimensionne(std::int32_t n);
    // Stores `x` at every index from `debut` to the upper bound; nothing when `debut` is above it.
    void remplit(std::int32_t debut, double x);
    // Adds `x` at the end, `fois` times.
    void ajoute(double x, std::int32_t fois);
    // Value at `indice`, from 1.
    double operator()(std::ptrdiff_t indice) const { return plage(indice).valeur; }
    // Last index after `indice` up to which the value is known to be the same.
    std::int32_t fin_plage(std::ptrdiff_t indice) const { return plage(indice).fin; }
    // The ranges, in order of index.
    const std::vector<Plage>& plages() const { return plages_; }

private:
    const Plage& plage(std::ptrdiff_t indice) const;
    void allonge(double x, std::int32_t fin);

    std::vector<Plage> plages_;
};

// Upper bound or index from a number of values: to the nearest, ties to even. Refuses with failure
// 6 what a 32-bit index can't hold.
std::int32_t indice_table(double x);

struct Statistiques {
    bool definition_statx = false;               // a STATX block is open; set by TestStatX
    bool statx_trie = false;                     // the data set came from a block; set by TestStatX
    std::int16_t ligne_definition_statx = 0;     // line of the STATX heading, from 1
    std::int32_t position_definition_statx = 0;  // length of the rebuilt text after it, bytes
    std::string texte_definition_statx;          // data lines of the block, each closed by one CR
    Table<std::int16_t> table_statx;             // values on each data line of the block, from 1
    TableRepetee table_x;                        // each x as often as its frequency says, from 1
    TableRepetee table_y;                        // each y of the last pairs, beside table_x
};
extern Statistiques statistiques;

// Upper bound of table_x: the number of values of the last data set, repetitions counted.
inline std::int32_t borne_table_x() { return statistiques.table_x.taille(); }
