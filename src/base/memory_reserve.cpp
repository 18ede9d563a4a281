// The reserve of memory. Changes the program's handler of exhausted memory.
#include "base/memory_reserve.hpp"

#include <new>

namespace {

std::size_t taille = 0;      // bytes that the reserve should have; 0: none is wanted
void* reserve = nullptr;     // nullptr while it is given back

// What the system calls when it has no memory left: the reserve is given back, once, and it tries again.
void rend_reserve() {
    if (reserve == nullptr) throw std::bad_alloc();
    ::operator delete(reserve);
    reserve = nullptr;
}

}  // namespace

void installe_reserve(std::size_t octets) {
    std::set_new_handler(rend_reserve);
    taille = octets;
    reprend_reserve();
}

void reprend_reserve() noexcept {
    if (reserve == nullptr && taille != 0) reserve = ::operator new(taille, std::nothrow);
}
