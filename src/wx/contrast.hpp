// Whether letters can be read on their background by somebody who sees little. Holds no state.
#pragma once

struct Teinte {
    int rouge = 0, vert = 0, bleu = 0;   // 0 to 255
};

inline constexpr double kContrasteVoulu = 7;   // asked for texts by the guidelines for low vision (WCAG, AAA)

// How far the two are apart: 1 for the same, 21 for black and white.
double contraste(const Teinte& a, const Teinte& b);

struct Lisible {
    Teinte lettres, fond;
};
// `voulue` made darker or lighter as little as possible, until it can be read on `fond`. A background of
// a middling grey, on which nothing reads well enough, gives way to white or black.
Lisible rend_lisible(const Teinte& voulue, const Teinte& fond);
