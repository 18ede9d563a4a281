// The elementary functions of the calculation. The systems' own libraries differ in the last digits,
// even from one processor to the next; these come from one library that is part of the program, so a
// sheet gives the same bytes everywhere. Square roots, remainders and roundings are exact by standard
// and stay with <cmath>. No state.
#pragma once

#include <cstddef>

extern "C" {
double voxtab_exp(double);
double voxtab_log(double);
double voxtab_sin(double);
double voxtab_cos(double);
double voxtab_tan(double);
double voxtab_atan(double);
}

namespace maths {

inline double exp(double x) { return voxtab_exp(x); }
inline double log(double x) { return voxtab_log(x); }
inline double sin(double x) { return voxtab_sin(x); }
inline double cos(double x) { return voxtab_cos(x); }
inline double tan(double x) { return voxtab_tan(x); }
inline double atan(double x) { return voxtab_atan(x); }

}  // namespace maths

inline constexpr std::size_t kTailleBloc = 256;   // values that base/maths_loops.hpp takes at once
