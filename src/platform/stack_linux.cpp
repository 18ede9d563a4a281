// Stack of the main thread on Linux: its limit is fixed when the program starts, so the program sets
// the wanted limit and starts itself again, once. Changes the process limit, no state of the core.
#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/stack.hpp"

namespace {

constexpr std::size_t kReserve = std::size_t{256} << 10;   // boxes, messages, the C library below the engine

// Bytes of the address space that are taken, as the system counts them for its limit; 0 when it
// doesn't tell.
std::size_t espace_pris() {
    const int descripteur = open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (descripteur < 0) return 0;
    std::array<char, 64> pages{};
    const ssize_t lus = read(descripteur, pages.data(), pages.size());
    close(descripteur);
    if (lus <= 0) return 0;
    std::size_t nombre = 0;
    std::from_chars(pages.data(), pages.data() + lus, nombre);
    return nombre * static_cast<std::size_t>(getpagesize());
}

// What the stack can become where the address space is limited too: a stack that meets that limit as it
// grows ends the program. Half of what is left is the heap's.
std::size_t pile_possible(std::size_t taille) {
    rlimit limite{};
    if (getrlimit(RLIMIT_AS, &limite) != 0 || limite.rlim_cur == RLIM_INFINITY) return taille;
    const std::size_t pris = espace_pris();
    return std::min(taille, limite.rlim_cur <= pris ? 0 : (limite.rlim_cur - pris) / 2);
}

}  // namespace

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

// Of a small stack the reserve is half.
const char* limite_pile() {
    pthread_attr_t attributs;
    if (pthread_getattr_np(pthread_self(), &attributs) != 0) return nullptr;
    void* bas = nullptr;
    size_t taille = 0;
    const int rate = pthread_attr_getstack(&attributs, &bas, &taille);
    pthread_attr_destroy(&attributs);
    if (rate != 0) return nullptr;
    const std::size_t possible = pile_possible(taille);
    return static_cast<const char*>(bas) + (taille - possible) + std::min(kReserve, possible / 2);
}
