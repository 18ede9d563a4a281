// The contrast of two colours by their relative luminance, and colours that have enough of it.
#include "wx/contrast.hpp"

#include <algorithm>
#include <cmath>

namespace {

constexpr Teinte kNoir{0, 0, 0};
constexpr Teinte kBlanc{255, 255, 255};
constexpr int kPas = 32;   // from a colour to black or white

// The light of one component as a screen gives it.
double lumiere(int composante) {
    const double c = composante / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(const Teinte& t) {
    return 0.2126 * lumiere(t.rouge) + 0.7152 * lumiere(t.vert) + 0.0722 * lumiere(t.bleu);
}

int entre(int a, int b, int pas) { return a + (b - a) * pas / kPas; }

// The colour on the way from `a` to `b`.
Teinte melange(const Teinte& a, const Teinte& b, int pas) {
    return {entre(a.rouge, b.rouge, pas), entre(a.vert, b.vert, pas), entre(a.bleu, b.bleu, pas)};
}

}  // namespace

double contraste(const Teinte& a, const Teinte& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Lisible rend_lisible(const Teinte& voulue, const Teinte& fond) {
    const bool vers_noir = contraste(kNoir, fond) > contraste(kBlanc, fond);
    const Teinte& but = vers_noir ? kNoir : kBlanc;
    for (int pas = 0; pas <= kPas; ++pas)
        if (const Teinte t = melange(voulue, but, pas); contraste(t, fond) >= kContrasteVoulu)
            return {t, fond};
    return {but, vers_noir ? kBlanc : kNoir};
}
