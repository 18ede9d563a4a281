// A generator of choices that is the same on every system. Holds its own state alone.
#pragma once

#include <cstddef>
#include <cstdint>

struct Tirage {
    std::uint64_t etat;  // splitmix64

    // The state goes on by a constant step: seeds that follow each other must not be a step apart, or
    // their choices are the same ones shifted.
    explicit Tirage(std::uint64_t graine) : etat(melange(graine + kPas)) {}

    std::uint64_t suivant() { return melange(etat += kPas); }
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

private:
    static constexpr std::uint64_t kPas = 0x9E3779B97F4A7C15u;
    static std::uint64_t melange(std::uint64_t z) {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
};
