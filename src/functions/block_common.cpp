// The loops of a block for any processor of the kind. Changes no state.
#include "functions/block_loops.hpp"

bool calcule_bloc_commun(const Operation* operations, std::size_t nombre, double* cases, std::size_t n) {
    return execute_toutes(operations, nombre, cases, n);
}
