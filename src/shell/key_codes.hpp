// The codes of the keys, and a key with its modifiers. Letters and digits are their capital's code; the
// others stand above the characters.
#pragma once

enum Touche : int {
    kToucheAucune = 0,
    kToucheEchap = 27,
    kToucheEntree = 13,
    kToucheF1 = 0x101, kToucheF2, kToucheF3, kToucheF4, kToucheF5, kToucheF6, kToucheF7, kToucheF8,
    kToucheF9, kToucheF10, kToucheF11, kToucheF12,
    kToucheGauche = 0x120, kToucheDroite, kToucheHautFleche, kToucheBas, kToucheDebut, kToucheFin,
    kTouchePagePrecedente, kTouchePageSuivante, kToucheInser, kToucheSuppr, kToucheArriere,
    kToucheTab, kToucheMaj, kToucheCtrl, kToucheAlt, kToucheAutre
};

// A key with the state of the modifiers at that moment. AltGr is Ctrl and Alt together.
struct FrappeTouche {
    int touche = kToucheAucune;
    bool maj = false, ctrl = false, alt = false;

    bool operator==(const FrappeTouche&) const = default;
};
