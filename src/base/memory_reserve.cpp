// The reserve of memory. Changes the program's handler of exhausted memory.
#include "base/memory_reserve.hpp"

#include <atomic>
#include <new>

namespace {

std::size_t taille = 0;               // bytes that the reserve should have; 0: none is wanted
std::atomic<void*> reserve = nullptr;   // nullptr while it is given back

// What the system calls when it has no memory left: the reserve is given back, once, and it tries again.
void rend_reserve() {
    void* const gardee = reserve.exchange(nullptr);
    if (gardee == nullptr) throw std::bad_alloc();
    ::operator delete(gardee);
}

}  // namespace

void installe_reserve(std::size_t octets) {
    std::set_new_handler(rend_reserve);
    taille = octets;
    reprend_reserve();
}

void reprend_reserve() noexcept {
    if (reserve != nullptr || taille == 0) return;
    // Another thread may have taken it meanwhile; without one to be had there is none.
    ::operator delete(reserve.exchange(::operator new(taille, std::nothrow)));
}
