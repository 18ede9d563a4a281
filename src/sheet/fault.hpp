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

// The piece of `texte` (what the user wrote, without comment and old result) that the characters `debut` to in
// front of `fin` of `formule` (what the engine read, from 1) come from. The formula stands in the text at
// `decalage` or behind: capitals, "^2" for "²", "*" put in, the counts of groups put in.
Morceau morceau_du_texte(std::string_view texte, std::string_view formule, std::size_t decalage, std::size_t debut,
                         std::size_t fin);

// Keeps the fault of the line of the sheet that has just failed; `ecrite` is the line of the new text, from 1, that
// the line `numero` of the sheet is written to.
void garde_faute(int numero, std::size_t ecrite);

// What the last pass reported first on the line that failed, or the last box that it showed.
std::string_view mots_de_la_faute();

// The piece of the last pass's fault in `texte`, the sheet as it stands now, in bytes from 0. kAilleurs when no line
// has failed, or when the line is no longer what the pass wrote.
Morceau place_de_la_faute(std::string_view texte);
