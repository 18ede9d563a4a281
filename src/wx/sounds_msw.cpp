// Sounds on Windows: those that the user has given to the system's events. Two that follow each other
// are heard as two.
#include "wx/sounds.hpp"

#include <windows.h>

#include <cstddef>
#include <deque>

#include "platform/platform.hpp"

namespace {

constexpr UINT kDuree = 400;              // milliseconds from one sound to the next
constexpr std::size_t kAttenteMaxi = 2;   // a long sum beeps faster than a sound lasts

struct Sons {
    std::deque<UINT> attente;             // kinds of the sounds to come
    UINT_PTR minuterie = 0;               // runs while sounds may wait
    ULONGLONG debut = 0;                  // of the last sound, milliseconds
};
Sons sons;

void sonne(UINT genre) {
    sons.debut = GetTickCount64();
    MessageBeep(genre);
}

void CALLBACK suite(HWND, UINT, UINT_PTR minuterie, DWORD) {
    if (sons.attente.empty()) {
        KillTimer(nullptr, minuterie);
        sons.minuterie = 0;
        return;
    }
    sonne(sons.attente.front());
    sons.attente.pop_front();
}

// In a long calculation no timer runs: there the time that has passed counts.
void joue(UINT genre) {
    if (GetTickCount64() - sons.debut >= kDuree && sons.attente.empty())
        sonne(genre);
    else if (sons.attente.size() < kAttenteMaxi)
        sons.attente.push_back(genre);
    if (sons.minuterie == 0) sons.minuterie = SetTimer(nullptr, 0, kDuree, suite);
}

}  // namespace

void installe_sons() {
    port.boites.bip = [] { joue(MB_OK); };
    port.boites.son = [](Son genre) { joue(genre == Son::echec ? MB_ICONHAND : MB_ICONASTERISK); };
}
