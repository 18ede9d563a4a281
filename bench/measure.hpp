// Times and memory. Times are those that the processor spent, user and system together, so that
// what else runs on the machine weighs little; cases that are compared are repeated in turn.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// Processor time of this process, in seconds.
double temps_processeur();

// One repetition of a case: prepares, runs, and answers the seconds of what it measures.
using Cas = std::function<double()>;

// The median of each case over `repetitions` rounds; each round runs every case once. A first round
// isn't counted.
std::vector<double> medianes(const std::vector<Cas>& cas, int repetitions);

// What a pass takes in memory, in bytes.
struct MemoirePasse {
    std::size_t texte = 0;  // the sheet's text
    std::size_t croissance =
        0;  // peak of the resident memory during the pass, above what it was before
};

// Runs `passe` in a child process, where `prepare` has run before, and measures its peak there.
// `prepare` answers the size of the text. Refuses, with an exception, a child that fails.
MemoirePasse mesure_memoire(const std::function<std::size_t()>& prepare,
                            const std::function<void()>& passe);
