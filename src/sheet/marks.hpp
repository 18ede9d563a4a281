// The words that tell a line's form (FIN, INC, STATX...), found quickly: the signs of a text rule most of them
// out before any search. Holds no state.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/codepage.hpp"
#include "base/signs.hpp"

// A mark and its letters.
struct Marque {
    std::string_view mot;
    Signes lettres;
    consteval Marque(std::string_view m) : mot(m), lettres(signes_de(m)) {}

    // False when a text with these signs can't hold the mark.
    constexpr bool possible(Signes signes) const { return (signes & lettres) == lettres; }
};

inline constexpr Marque kFin{"FIN"}, kMotInc{"INC"}, kMotAir{"AIR"}, kDefM{"DEFM"},
    kDefFonction{"DEFFON"}, kMotStatX{"STATX"}, kMotStatXY{"STATXY"}, kMotTriStatX{"TRISTATX"},
    kMotResXY{"RESXY"}, kMotEuro{"EURO"}, kMotPi{"PI"};

// A text without any of these letters has no mark that tells a line's form.
inline constexpr Signes kLettresDeForme = bit_lettre('I') | bit_lettre('D') | bit_lettre('X');
static_assert([] {
    for (const Marque& m : {kFin, kMotInc, kMotAir, kDefM, kDefFonction, kMotStatX, kMotStatXY, kMotTriStatX, kMotResXY})
        if ((m.lettres & kLettresDeForme) == 0) return false;
    return true;
}());

// A text in capitals with its signs. Those of a text that it is a part of do as well.
struct TexteMarque {
    std::string_view texte;
    Signes signes;

    explicit TexteMarque(std::string_view t) : texte(t), signes(signes_de(t)) {}
    TexteMarque(std::string_view t, Signes s) : texte(t), signes(s) {}

    // Position of the mark from 0, or npos.
    std::size_t position(const Marque& marque) const {
        return marque.possible(signes) ? texte.find(marque.mot) : std::string_view::npos;
    }
    bool contient(const Marque& marque) const {
        return position(marque) != std::string_view::npos;
    }
};

// What the heading of a table or an area says: its variable and which of the two it is.
struct VariableEntete {
    char lettre = 0;    // A to Z; 0: the text is no heading
    bool inc = false;   // INC, which comes first wherever it stands; otherwise AIR
};

// The letter behind INC or AIR in a text in capitals.
inline VariableEntete variable_entete(std::string_view majuscules) {
    const std::size_t inc = majuscules.find(kMotInc.mot);
    const std::size_t mot = inc != std::string_view::npos ? inc : majuscules.find(kMotAir.mot);
    if (mot == std::string_view::npos || mot + 3 >= majuscules.size() || !est_lettre(majuscules[mot + 3])) return {};
    return {majuscules[mot + 3], inc != std::string_view::npos};
}
