// Stack of the main thread on Linux: its limit is fixed when the program starts, so the program sets
// the wanted limit and starts itself again, once. Changes the process limit, no state of the core.
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/stack.hpp"

namespace {
constexpr unsigned long kReserve = 256ul << 10;   // boxes, messages, the C library below the engine
}

void agrandit_pile(char** arguments) {
    rlimit limite{};
    if (getrlimit(RLIMIT_STACK, &limite) != 0) return;
    if (limite.rlim_cur == RLIM_INFINITY || limite.rlim_cur >= kPileVoulue) return;
    const rlim_t ancienne = limite.rlim_cur;
    limite.rlim_cur = limite.rlim_max == RLIM_INFINITY || limite.rlim_max > kPileVoulue
                          ? kPileVoulue
                          : limite.rlim_max;
    if (limite.rlim_cur <= ancienne || setrlimit(RLIMIT_STACK, &limite) != 0) return;
    execv("/proc/self/exe", arguments);
    // The program could not be started again: it goes on with the stack that it has.
}

const char* limite_pile() {
    pthread_attr_t attributs;
    if (pthread_getattr_np(pthread_self(), &attributs) != 0) return nullptr;
    void* bas = nullptr;
    size_t taille = 0;
    const int rate = pthread_attr_getstack(&attributs, &bas, &taille);
    pthread_attr_destroy(&attributs);
    return rate != 0 || taille <= kReserve ? nullptr : static_cast<const char*>(bas) + kReserve;
}
