// The result of the line that the cursor is on. Reads what the last pass wrote (`feuille`), changes nothing.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "editing/lines.hpp"

// The result that the last pass has written after the line; for a line that has changed since then what
// stands after its "=", when the pass would cut it there. Nothing for any other line, those of the blocks of
// results too.
//
// `texte` is the sheet as it stands now, `curseur` the bytes in front of the cursor. The answer is a part of
// `texte` or of the tables of the last pass.
std::string_view resultat_sous_curseur(std::string_view texte, std::size_t curseur);

// The same for each line from the one that begins at `debut` to the last that begins at `fin` or in front of it, in
// their order: its extent and its result.
void pour_chaque_resultat(std::string_view texte, std::size_t debut, std::size_t fin,
                          const std::function<void(const Etendue&, std::string_view)>& recoit);
