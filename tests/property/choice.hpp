// A generator of choices that is the same on every system. Holds its own state alone.
#pragma once

#include <cstddef>
#include <cstdint>

struct Tirage {
    std::uint64_t etat;  // splitmix64

    explicit Tirage(std::uint64_t graine) : etat(graine * 0x9E3779B97F4A7C15u + 1) {}

    std::uint64_t suivant() {
        etat += 0x9E3779B97F4A7C15u;
        std::uint64_t z = etat;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    // A whole number from `bas` to `haut`, both included.
    int entre(int bas, int haut) {
        return bas + static_cast<int>(suivant() % static_cast<std::uint64_t>(haut - bas + 1));
    }
    // True once in `fois`.
    bool une_fois_sur(int fois) { return entre(1, fois) == 1; }
    // One element of a list.
    template <class Liste>
    const auto& un_de(const Liste& liste) {
        return liste[static_cast<std::size_t>(entre(0, static_cast<int>(std::size(liste)) - 1))];
    }
};
