// Numbers and their texts: numeric prefix, general text, fixed text, leading-blank form, conversions
// to 16 and 32 bits, and the test of a floating result. Never looks at the locale. Holds no state.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/failure.hpp"

// Value of the longest beginning of `texte` that reads as a decimal number: blanks, one sign, digits
// with at most one ".", then "E" or "D" with an optional sign when a digit follows. 0 when nothing
// reads, and for a value too small. Raises failure 6 for a value too large.
double prefixe_numerique(std::string_view texte);

// Characters of `texte` that take part in that value; 0 when nothing reads.
std::size_t longueur_prefixe(std::string_view texte);

// General text: C's %.15G. Zero and minus zero are "0".
std::string texte_general(double x);

// Fixed text with exactly `decimales` decimals (negative counts as 0), rounded half away from zero
// on the decimal form of 15 significant digits; digits after the fifteenth are zeros. A negative
// value that rounds to nothing keeps its "-"; minus zero is "0".
void ajoute_texte_fixe(std::string& sortie, double x, int decimales);
inline std::string texte_fixe(double x, int decimales) {
    std::string sortie;
    ajoute_texte_fixe(sortie, x, decimales);
    return sortie;
}

// The same without the zeros that end the decimals.
void ajoute_texte_court(std::string& sortie, double x, int decimales);

// Leading-blank form: one blank in front of a value that is not negative, then the general text.
std::string forme_blanc(double x);

// Plain decimal figures of an integer.
std::string chiffres(long long n);

// How many, in figures, with the word for one or for several.
std::string combien(std::size_t n, std::string_view un, std::string_view plusieurs);

// To integers of 16 or 32 bits. Raise failure 6 when the value does not fit or is no number.
std::int16_t vers_16_arrondi(double x);     // to the nearest, ties to even
std::int16_t vers_16_tronque(double x);     // toward zero
std::int32_t vers_32_tronque(double x);     // toward zero

// Raises failure 6 unless the bad result comes out of a bad operand.
[[gnu::cold]] void refuse_resultat(double resultat, bool operande_infini, bool operande_indefini);

// Stores the result of a floating statement in `cible`, then tests it: an overflow out of finite
// operands and an invalid operation out of defined ones raise failure 6. What comes out of an
// operand that was already infinite or undefined raises nothing new.
template <class... Operande>
inline void range(double& cible, double resultat, Operande... operandes) {
    cible = resultat;
    if (!std::isfinite(resultat)) [[unlikely]]
        refuse_resultat(resultat, (std::isinf(operandes) || ... || false),
                        (std::isnan(operandes) || ... || false));
}

// Quotient of a statement; raises failure 11 for a divisor of 0 after storing what the division gives.
inline void range_quotient(double& cible, double dividende, double diviseur) {
    const double quotient = dividende / diviseur;
    if (diviseur == 0 && !std::isnan(dividende)) [[unlikely]] {
        cible = quotient;
        echoue(kDivisionZero);
    }
    range(cible, quotient, dividende, diviseur);
}
