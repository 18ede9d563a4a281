// The loops of a block with the instructions of AVX2, see CMakeLists.txt. Changes no state.
#if defined(__x86_64__)
#include "functions/block_loops.hpp"

bool calcule_bloc_avx2(const Operation* operations, std::size_t nombre, double* cases, std::size_t n) {
    return execute_toutes(operations, nombre, cases, n);
}
#endif
