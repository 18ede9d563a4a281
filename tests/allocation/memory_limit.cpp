// The operators new and delete of the test, on malloc. Change `limite_memoire`.
#include "allocation/memory_limit.hpp"

#include <malloc.h>

#include <cstdlib>
#include <new>

LimiteMemoire limite_memoire;

void epuise_memoire_a(long numero) {
    limite_memoire.compte = limite_memoire.refus = 0;
    limite_memoire.epuise = limite_memoire.seule = false;
    limite_memoire.epuise_a = numero;
}

void refuse_memoire_a(long numero) {
    epuise_memoire_a(numero);
    limite_memoire.seule = true;
}

long rend_memoire() {
    limite_memoire.epuise_a = 0;
    limite_memoire.epuise = false;
    return limite_memoire.compte;
}

namespace {

// A piece of memory within the limit, or nullptr.
void* essaie(std::size_t taille) {
    LimiteMemoire& l = limite_memoire;
    if (l.epuise && l.pris + taille > l.permis) return nullptr;
    void* piece = std::malloc(taille == 0 ? 1 : taille);
    if (piece != nullptr) l.pris += malloc_usable_size(piece);
    return piece;
}

}  // namespace

void* operator new(std::size_t taille) {
    LimiteMemoire& l = limite_memoire;
    const bool ici = ++l.compte == l.epuise_a;
    bool refuse = ici && l.seule;
    if (ici && !l.seule) {
        l.epuise = true;
        l.permis = l.pris;
    }
    for (;;) {
        if (void* piece = refuse ? nullptr : essaie(taille)) return piece;
        refuse = false;
        const std::new_handler poignee = std::get_new_handler();
        if (poignee == nullptr) break;
        try {
            poignee();
        } catch (...) {
            ++l.refus;
            throw;
        }
    }
    ++l.refus;
    throw std::bad_alloc();
}

void operator delete(void* piece) noexcept {
    if (piece == nullptr) return;
    limite_memoire.pris -= malloc_usable_size(piece);
    std::free(piece);
}
void operator delete(void* piece, std::size_t) noexcept { ::operator delete(piece); }
void* operator new[](std::size_t taille) { return ::operator new(taille); }
void operator delete[](void* piece) noexcept { ::operator delete(piece); }
void operator delete[](void* piece, std::size_t) noexcept { ::operator delete(piece); }
