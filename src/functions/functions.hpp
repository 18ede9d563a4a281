// The built-in functions. compile_f reads a call and computes it; angles follow `modes`.
#pragma once

#include <cstdint>
#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"

// Words of compile_f, for the files that compute parts of a call for it.
inline constexpr Procedure kCompileF{" sur compile_f"_fr, true};

double compile_f() noexcept;              // value of the call whose name is in l_symbole

// Reads "," and one more argument of a call into `registre`; type_f stays the call's. False, and
// reported, when the comma is missing: the call ends at once.
bool lis_argument(double& registre) noexcept;

double conv_a_r(double x) noexcept;       // angle unit to radians
double conv_r_a(double x) noexcept;       // radians to angle unit
double logarithme(double x);              // natural; failure 5 at 0 and below
double factoriel(std::int16_t n) noexcept;
std::string c_intx(double x) noexcept;    // text of the integer part, after rounding to the decimals shown
double intx(double x) noexcept;           // value of c_intx
double frac(double x) noexcept;           // fractional part through the general text; loses the sign
