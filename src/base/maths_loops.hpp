// The exponential, the logarithm, the sine and the cosine of many values at once: the operations of
// third_party/musl-math, in the same order, as loops that the compiler turns into vector instructions, so
// that each value has the bits that base/maths.hpp gives it. What is rare (the ends of the ranges, the
// neighbourhood of 1 for the logarithm, close to a multiple of a quarter turn) is left to those procedures.
// For the files that are built once for each set of instructions: everything here is local to the file and
// uses nothing of the standard library that the linker could share between them. No state.
#pragma once

#include <cstddef>
#include <cstdint>

#include <maths_tables.h>

#include "base/maths.hpp"


namespace {

using Bits = std::uint64_t;
constexpr Bits kBitSigne = Bits{1} << 63;

inline Bits bits_de(double x) { return __builtin_bit_cast(Bits, x); }
inline double reel_de(Bits b) { return __builtin_bit_cast(double, b); }

// The values that a loop leaves to the procedure for one value: not 0 where it does, floats, since SSE2
// compares no integers of 64 bits.
struct Reprises {
    double marques[kTailleBloc];
    Bits toutes = 0;
};

inline void marque(Reprises& r, std::size_t i, double raisons) {
    r.marques[i] = raisons;
    r.toutes |= bits_de(raisons);
}

// Gives the marked values by the procedure for one.
inline void reprends(const Reprises& r, double (*fonction)(double), const double* x, double* y, std::size_t n) {
    if (r.toutes == 0) return;
    for (std::size_t i = 0; i < n; ++i)
        if (r.marques[i] != 0) y[i] = fonction(x[i]);
}

// 2^(k/128) for each value and what is missing to it, from the table.
inline void puissances_de_deux(const Bits* k, double* echelle, double* queue, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        const Bits rang = 2 * (k[i] % (1 << EXP_TABLE_BITS));
        queue[i] = reel_de(voxtab_exp_data.tab[rang]);
        echelle[i] = reel_de(voxtab_exp_data.tab[rang + 1] + (k[i] << (52 - EXP_TABLE_BITS)));
    }
}

[[maybe_unused]] void exponentielles(const double* __restrict x, double* __restrict y, std::size_t n) {
    const auto& t = voxtab_exp_data;
    double reste[kTailleBloc], echelle[kTailleBloc], queue[kTailleBloc];
    Bits k[kTailleBloc];
    Reprises reprises;
    for (std::size_t i = 0; i < n; ++i) {
        const double decale = t.invln2N * x[i] + t.shift;
        const double kd = decale - t.shift;
        k[i] = bits_de(decale);
        reste[i] = x[i] + kd * t.negln2hiN + kd * t.negln2loN;
        marque(reprises, i, __builtin_fabs(x[i]) < 512 ? 0.0 : 1.0);
    }
    puissances_de_deux(k, echelle, queue, n);
    for (std::size_t i = 0; i < n; ++i) {
        const double r = reste[i], r2 = r * r;
        const double p = queue[i] + r + r2 * (t.poly[0] + r * t.poly[1]) + r2 * r2 * (t.poly[2] + r * t.poly[3]);
        y[i] = echelle[i] + echelle[i] * p;
    }
    reprends(reprises, voxtab_exp, x, y, n);
}

constexpr Bits kDebutMantisse = 0x3fe6000000000000;      // the mantissa is taken from 0.6875 to 1.375
constexpr double kPresDeUnBas = 1 - 0x1p-4, kPresDeUnHaut = 1 + 0x1.09p-4;

// What the table knows of the interval in which each mantissa lies.
struct Intervalles {
    double inverse[kTailleBloc], logarithme[kTailleBloc], centre_haut[kTailleBloc], centre_bas[kTailleBloc];
};

inline void lis_intervalles(const double* x, Intervalles& s, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        const Bits rang = ((bits_de(x[i]) - kDebutMantisse) >> (52 - LOG_TABLE_BITS)) % (1 << LOG_TABLE_BITS);
        s.inverse[i] = voxtab_log_data.tab[rang].invc;
        s.logarithme[i] = voxtab_log_data.tab[rang].logc;
        s.centre_haut[i] = voxtab_log_data.tab2[rang].chi;
        s.centre_bas[i] = voxtab_log_data.tab2[rang].clo;
    }
}

// The exponent of two as a float: put into the mantissa of 2^52, from which 2^52 is taken away again.
inline double exposant_de(Bits depuis_debut) {
    constexpr Bits kBiais = 1024;
    return reel_de(((depuis_debut + (kBiais << 52)) >> 52) | bits_de(0x1p52)) - (0x1p52 + kBiais);
}

[[maybe_unused]] void logarithmes(const double* __restrict x, double* __restrict y, std::size_t n) {
    const auto& t = voxtab_log_data;
    Intervalles s;
    Reprises reprises;
    lis_intervalles(x, s, n);
    for (std::size_t i = 0; i < n; ++i) {
        const double rare = x[i] >= 0x1p-1022 ? 0.0 : 1.0, grand = x[i] <= 0x1.fffffffffffffp1023 ? 0.0 : 1.0;
        const double pres = x[i] >= kPresDeUnBas ? (x[i] < kPresDeUnHaut ? 1.0 : 0.0) : 0.0;
        marque(reprises, i, rare + grand + pres);
        const Bits ecart = bits_de(x[i]) - kDebutMantisse;
        const double kd = exposant_de(ecart);
        const double z = reel_de(bits_de(x[i]) - (ecart & (Bits{0xfff} << 52)));
        const double r = (z - s.centre_haut[i] - s.centre_bas[i]) * s.inverse[i];
        const double w = kd * t.ln2hi + s.logarithme[i];
        const double haut = w + r;
        const double bas = w - haut + r + kd * t.ln2lo;
        const double r2 = r * r;
        y[i] = bas + r2 * t.poly[0] + r * r2 * (t.poly[1] + r * t.poly[2] + r2 * (t.poly[3] + r * t.poly[4])) + haut;
    }
    reprends(reprises, voxtab_log, x, y, n);
}

// The sine of y0 + y1, which lies within an eighth of a turn.
inline double noyau_sinus(double y0, double y1) {
    constexpr double s1 = -1.66666666666666324348e-01, s2 = 8.33333333332248946124e-03,
                     s3 = -1.98412698298579493134e-04, s4 = 2.75573137070700676789e-06,
                     s5 = -2.50507602534068634195e-08, s6 = 1.58969099521155010221e-10;
    const double z = y0 * y0, w = z * z;
    const double r = s2 + z * (s3 + z * s4) + z * w * (s5 + z * s6);
    const double v = z * y0;
    return y0 - ((z * (0.5 * y1 - v * r) - y1) - v * s1);
}

// The sine of an angle within an eighth of a turn that has not been reduced.
inline double noyau_sinus(double x) {
    constexpr double s1 = -1.66666666666666324348e-01, s2 = 8.33333333332248946124e-03,
                     s3 = -1.98412698298579493134e-04, s4 = 2.75573137070700676789e-06,
                     s5 = -2.50507602534068634195e-08, s6 = 1.58969099521155010221e-10;
    const double z = x * x, w = z * z;
    const double r = s2 + z * (s3 + z * s4) + z * w * (s5 + z * s6);
    const double sinus = x + z * x * (s1 + z * r);
    return __builtin_fabs(x) < 0x1p-26 ? x : sinus;
}

inline double noyau_cosinus(double y0, double y1) {
    constexpr double c1 = 4.16666666666666019037e-02, c2 = -1.38888888888741095749e-03,
                     c3 = 2.48015872894767294178e-05, c4 = -2.75573143513906633035e-07,
                     c5 = 2.08757232129817482790e-09, c6 = -1.13596475577881948265e-11;
    const double z = y0 * y0, w = z * z;
    const double r = z * (c1 + z * (c2 + z * c3)) + w * w * (c4 + z * (c5 + z * c6));
    const double hz = 0.5 * z, un = 1.0 - hz;
    return un + (((1.0 - un) - hz) + (z * r - y0 * y1));
}

// Angles below this are not reduced: pi/4, with the high word of its bits alone.
constexpr double kSansReduction = 0x1.921fcp-1;

// An angle as quarter turns and a rest in two parts.
struct Reduit {
    Bits quarts;        // modulo 4 in the last bits
    double y0, y1;
    double a_part;      // not 0: so close to the next quarter, or to this one, that the reduction takes other ways
};

inline Reduit reduis(double x) {
    constexpr double toint = 0x1.8p52, invpio2 = 6.36619772367581382433e-01,
                     pio2_1 = 1.57079632673412561417e+00, pio2_1t = 6.07710050650619224932e-11;
    const double z = x * invpio2;
    const double decale = z + toint;
    const double fn = decale - toint;
    const double r = x - fn * pio2_1, w = fn * pio2_1t;
    const double y0 = r - w;
    const double loin = __builtin_fabs(x) <= 8192 ? 0.0 : 1.0;
    const double limite = __builtin_fabs(z - fn) > 0.4999 ? 1.0 : 0.0;
    const double proche = __builtin_fabs(y0) < 0x1p-15 * __builtin_fabs(x) ? 1.0 : 0.0;
    return {bits_de(decale), y0, (r - y0) - w, loin + limite + proche};
}

// The sine or the cosine of the rest, after so many quarter turns for a sine.
inline double selon_quart(Bits quarts, double sinus, double cosinus) {
    const Bits impair = 0 - (quarts & 1);
    return reel_de(((bits_de(cosinus) & impair) | (bits_de(sinus) & ~impair)) ^ ((quarts & 2) << 62));
}

inline bool sans_reduction(const double* x, std::size_t n) {
    Bits grands = 0;
    for (std::size_t i = 0; i < n; ++i) grands |= bits_de(__builtin_fabs(x[i]) < kSansReduction ? 0.0 : 1.0);
    return grands == 0;
}

[[maybe_unused]] void sinus_de(const double* __restrict x, double* __restrict y, std::size_t n) {
    if (sans_reduction(x, n)) {
        for (std::size_t i = 0; i < n; ++i) y[i] = noyau_sinus(x[i]);
        return;
    }
    Reprises reprises;
    for (std::size_t i = 0; i < n; ++i) {
        const Reduit a = reduis(x[i]);
        marque(reprises, i, a.a_part);
        const double reduit = selon_quart(a.quarts, noyau_sinus(a.y0, a.y1), noyau_cosinus(a.y0, a.y1));
        y[i] = __builtin_fabs(x[i]) < kSansReduction ? noyau_sinus(x[i]) : reduit;
    }
    reprends(reprises, voxtab_sin, x, y, n);
}

[[maybe_unused]] void cosinus_de(const double* __restrict x, double* __restrict y, std::size_t n) {
    Reprises reprises;
    for (std::size_t i = 0; i < n; ++i) {
        const Reduit a = reduis(x[i]);
        marque(reprises, i, a.a_part);
        y[i] = selon_quart(a.quarts + 1, noyau_sinus(a.y0, a.y1), noyau_cosinus(a.y0, a.y1));
    }
    reprends(reprises, voxtab_cos, x, y, n);
}

}  // namespace
