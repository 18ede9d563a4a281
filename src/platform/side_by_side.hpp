// Pieces of one calculation side by side on the processor's cores. Changes no state of the program; the
// pieces may change only what is theirs.
#pragma once

#include <atomic>
#include <functional>

// How many workers a calculation may have on this machine, the calling thread among them: from 1 to 4.
int ouvriers_possibles();

// Does fait(piece, ouvrier) for each piece from 0 to nombre - 1, on `ouvriers` threads at most. Worker 0 is
// the calling thread, the only one that may ask the user or touch the program's state. What leaves a piece
// stops all of them (`arret` is set, which a long piece looks at) and leaves here, that of the lowest piece
// first; a piece that ends because of `arret` throws Arrete.
struct Arrete {};
void cote_a_cote(int nombre, int ouvriers, std::atomic<bool>& arret, const std::function<void(int, int)>& fait);
