// What the functions are made of: integer parts, which follow the decimals shown, and factorials.
#pragma once

#include <cstdint>
#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"

// Words of compile_f, for the files that compute parts of a call for it.
inline constexpr Procedure kCompileF{" sur compile_f"_fr, true};

// How a call ends: with its closing bracket, or at once.
enum class Fin : std::uint8_t { cloture, immediate };

double logarithme(double x);              // natural; failure 5 at 0 and below
double factoriel(std::int16_t n) noexcept;
std::string c_intx(double x) noexcept;    // text of the integer part, after rounding to the decimals shown
double intx(double x) noexcept;           // value of c_intx
// Fractional part through the general text; loses the sign. Kept: see the oddities,
// whole-part-rounds-first.
double frac(double x) noexcept;

// The values of FACT, and of ANP and CNP, whose n and p are in l_argument1 and l_argument2. Each answers
// how the call ends.
Fin factorielle(double x, double& resultat);
Fin arrangements(double& resultat);
Fin combinaisons(double& resultat);
