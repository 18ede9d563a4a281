// Memory kept aside. When the system has none left the reserve is given back, so that the small pieces
// that a procedure needs to tell its failure and to come to its end are there; what is larger than the
// reserve fails as before, with failure 7. Holds the reserve.
#pragma once

#include <cstddef>

inline constexpr std::size_t kReserveMemoire = std::size_t{8} << 20;

// Takes the reserve and has it given back when the memory is exhausted, on whichever thread that is. Called
// first by a program that goes on then; voxtab-calc, which has nothing to keep, ends instead.
void installe_reserve(std::size_t octets = kReserveMemoire);

// Takes the reserve again when it was given back, if there is room for it by now.
void reprend_reserve() noexcept;
