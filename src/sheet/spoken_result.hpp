// What stands behind the line that the cursor is on. Changes nothing.
#pragma once

#include <string_view>

// The result that the last pass has written behind the line; for a line that has changed since then what
// stands behind its "=", when the pass would cut it there. Nothing for any other line, those of the blocks of
// results too.
std::string_view resultat_sous_curseur();
