// Stack of the main thread on Windows: the linker has given the program the whole of it. Changes no
// state.
#include <windows.h>

#include "platform/stack.hpp"

namespace {
constexpr ULONG_PTR kReserve = 256ul
                               << 10;   // boxes, messages, the system's libraries below the engine
}

// The size stands in the program's file; nothing is left to do when it runs.
void agrandit_pile(char**) {}

const char* limite_pile() {
    ULONG_PTR bas = 0;
    ULONG_PTR haut = 0;
    GetCurrentThreadStackLimits(&bas, &haut);
    return haut - bas <= kReserve ? nullptr : reinterpret_cast<const char*>(bas + kReserve);
}
