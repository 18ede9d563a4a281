// What may take long asks here now and then whether it is to go on. Changes `patience`; the user gives up
// with Escape in the window.
#pragma once

#include <cstddef>

struct Patience {
    std::size_t travail = 0;      // work since the user was last asked, in steps of some nanoseconds
    bool abandonnee = false;      // the user has given up: nothing is calculated until the next pass
    bool dite = false;            // the box that says so has been shown
    bool demandee = false;        // the user was asked: this calculation has begun before
};
extern Patience patience;

// Steps between two questions: about a millisecond.
inline constexpr std::size_t kTravailEntreQuestions = 1 << 18;

// Asks the user now; notes the answer. True when the user gives up or has given up.
bool abandonne();

[[gnu::cold]] void demande();   // asks; raises kAbandon when the answer is no

// Tells that the user gave up: "calcul interrompu", by the first procedure that meets it.
void dit_abandon();

// Notes so many steps of work, and asks when it is time. Raises failure kAbandon when the user gives up,
// and at every call from then on.
inline void demande_suite(std::size_t pas) {
    patience.travail += pas;
    if (patience.travail >= kTravailEntreQuestions || patience.abandonnee) [[unlikely]] demande();
}
