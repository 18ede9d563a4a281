// The result of the line that the cursor is on. Reads what the last pass wrote (`feuille`), changes nothing.
#pragma once

#include <cstddef>
#include <string_view>

// The result that the last pass has written after the line; for a line that has changed since then what
// stands after its "=", when the pass would cut it there. Nothing for any other line, those of the blocks of
// results too.
//
// `texte` is the sheet as it stands now, `curseur` the bytes in front of the cursor. The answer is a part of
// `texte` or of the tables of the last pass.
std::string_view resultat_sous_curseur(std::string_view texte, std::size_t curseur);
