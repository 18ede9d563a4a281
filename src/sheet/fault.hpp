// Where the line that a pass failed on is at fault: from the engine's position in the formula to the column of the
// sheet. Changes `feuille.faute`.
#pragma once

#include <cstddef>
#include <string_view>

// A piece of a text, in bytes from 0.
struct Morceau {
    static constexpr std::size_t kAilleurs = std::string_view::npos;
    std::size_t debut = kAilleurs;   // kAilleurs: the formula is not made of this text
    std::size_t fin = kAilleurs;     // the byte behind it
};

// Keeps the fault of the line of the sheet that has just failed; `ecrite` is the line of the new text, from 1, that
// the line `numero` of the sheet is written to.
void garde_faute(int numero, std::size_t ecrite);

// What the last pass reported first on the line that failed, or the last box that it showed.
std::string_view mots_de_la_faute();

// The piece of the last pass's fault in `texte`, the sheet as it stands now, in bytes from 0. kAilleurs when no line
// has failed, or when the line is no longer what the pass wrote.
Morceau place_de_la_faute(std::string_view texte);
