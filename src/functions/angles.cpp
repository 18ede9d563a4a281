// Conversions of angles, each with its report. Change no state.
#include "functions/angles.hpp"

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"

namespace {

constexpr Procedure kConvAR{" sur conv_a_r"_fr, true};
constexpr Procedure kConvRA{" sur conv_r_a"_fr, true};

}  // namespace

double conv_a_r(double x) noexcept {
    double resultat = 0;
    Tente(kConvAR, [&] { range(resultat, vers_radians(x), x); });
    return resultat;
}

double conv_r_a(double x) noexcept {
    double resultat = 0;
    Tente(kConvRA, [&] { range(resultat, depuis_radians(x), x); });
    return resultat;
}
