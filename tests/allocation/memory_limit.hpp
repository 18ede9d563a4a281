// A machine whose memory comes to an end: operator new counts, and fails as the system's does (the
// handler first, then std::bad_alloc) when the program holds more than it may. Included by one program.
#pragma once

#include <cstddef>

struct LimiteMemoire {
    long compte = 0;             // allocations since the last reset
    long epuise_a = 0;           // number of the one from which on there is no more memory; 0: never
    bool seule = false;          // that one alone finds none, and is asked for again by the handler
    bool epuise = false;         // it has come to that
    std::size_t pris = 0;        // bytes that the program holds
    std::size_t permis = 0;      // what it may hold once the memory is exhausted
    long refus = 0;              // allocations that failed for good
};
extern LimiteMemoire limite_memoire;

// From allocation `numero` on, counted from here, the program gets no byte more than it holds then.
void epuise_memoire_a(long numero);
// Allocation `numero` alone finds no memory; a second try of it, and all the others, do.
void refuse_memoire_a(long numero);
// There is memory again. The number of allocations since epuise_memoire_a.
long rend_memoire();
