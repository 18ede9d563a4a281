// The loops of calcule_bloc, for the two files that are built with different instructions. Everything here is local
// to the file and uses nothing of the standard library that the linker could share between them. No state.
#pragma once

#include "base/maths_loops.hpp"
#include "functions/block.hpp"

namespace {

// True when no value needs a report: none is infinite or undefined. Such a value has all the bits of its exponent,
// and one more carries into the sign.
inline bool tous_finis(const double* y, std::size_t n) {
    constexpr Bits kExposant = Bits{0x7ff} << 52, kUn = Bits{1} << 52;
    Bits somme = 0;
    for (std::size_t i = 0; i < n; ++i) somme |= (bits_de(y[i]) & kExposant) + kUn;
    return (somme & kBitSigne) == 0;
}

// What the grammar does with p to the power e where p isn't positive; r is the power of the absolute value. Answers
// false when that needs a report.
inline bool puissance_a_part(double p, double e, double& r) {
    if (p == 0) {
        r = p;
        return e != -1;
    }
    if (e != __builtin_trunc(e) || __builtin_fabs(e) > 2147483647.0) return false;
    if (static_cast<std::int32_t>(e) % 2 != 0) r = -r;
    return true;
}

// p to the power e through the logarithm and the exponential, as the grammar does it.
inline bool puissances(const double* p, const double* e, double* r, std::size_t n) {
    double a[kTailleBloc], b[kTailleBloc];
    for (std::size_t i = 0; i < n; ++i) a[i] = __builtin_fabs(p[i]);
    logarithmes(a, b, n);
    for (std::size_t i = 0; i < n; ++i) a[i] = b[i] * e[i];
    exponentielles(a, r, n);
    Bits a_part = 0;
    for (std::size_t i = 0; i < n; ++i) a_part |= bits_de(p[i] > 0 ? 0.0 : 1.0);
    if (a_part == 0) return true;
    for (std::size_t i = 0; i < n; ++i)
        if (!(p[i] > 0) && !puissance_a_part(p[i], e[i], r[i])) return false;
    return true;
}

// Operations of one and two operands, of which no value needs a report but an infinite or undefined one: where
// a divisor is 0, or an argument is excluded, the result is such a value.
inline void une_operande(const Operation& o, const double* __restrict x, double* __restrict y, std::size_t n) {
    switch (o.genre) {
        case Genre::exponentielle: return exponentielles(x, y, n);
        case Genre::logarithme: return logarithmes(x, y, n);
        case Genre::sinus: return sinus_de(x, y, n);
        case Genre::cosinus: return cosinus_de(x, y, n);
        case Genre::racine:
            for (std::size_t i = 0; i < n; ++i) y[i] = __builtin_sqrt(x[i]);
            return;
        case Genre::absolue:
            for (std::size_t i = 0; i < n; ++i) y[i] = __builtin_fabs(x[i]);
            return;
        case Genre::radians:
            for (std::size_t i = 0; i < n; ++i) y[i] = x[i] * o.pi / o.valeur;
            return;
        default:
            for (std::size_t i = 0; i < n; ++i) y[i] = -x[i];
    }
}

inline void deux_operandes(Genre genre, const double* __restrict g, const double* __restrict d, double* __restrict y,
                           std::size_t n) {
    switch (genre) {
        case Genre::ajoute:
            for (std::size_t i = 0; i < n; ++i) y[i] = g[i] + d[i];
            return;
        case Genre::retranche:
            for (std::size_t i = 0; i < n; ++i) y[i] = g[i] - d[i];
            return;
        case Genre::multiplie:
            for (std::size_t i = 0; i < n; ++i) y[i] = g[i] * d[i];
            return;
        default:
            for (std::size_t i = 0; i < n; ++i) y[i] = g[i] / d[i];
    }
}

// One operation. False when a value needs a report. The opposite of a value has none.
inline bool execute(const Operation& o, double* cases, std::size_t n) {
    double* y = cases + static_cast<std::size_t>(o.resultat) * kTailleBloc;
    const double* g = cases + static_cast<std::size_t>(o.gauche < 0 ? 0 : o.gauche) * kTailleBloc;
    const double* d = cases + static_cast<std::size_t>(o.droite < 0 ? 0 : o.droite) * kTailleBloc;
    switch (o.genre) {
        case Genre::constante:
            for (std::size_t i = 0; i < n; ++i) y[i] = o.valeur;
            return true;
        case Genre::oppose: une_operande(o, g, y, n); return true;
        case Genre::eleve: return puissances(g, d, y, n) && tous_finis(y, n);
        case Genre::fonction: return applique_fonction(o.rang, g, y, n) && tous_finis(y, n);
        case Genre::ajoute:
        case Genre::retranche:
        case Genre::multiplie:
        case Genre::divise: deux_operandes(o.genre, g, d, y, n); return tous_finis(y, n);
        default: une_operande(o, g, y, n); return tous_finis(y, n);
    }
}

[[maybe_unused]] inline bool execute_toutes(const Operation* operations, std::size_t nombre, double* cases,
                                            std::size_t n) {
    for (std::size_t i = 0; i < nombre; ++i)
        if (!execute(operations[i], cases, n)) return false;
    return true;
}

}  // namespace
