// The result that an earlier pass wrote after a line: where it begins, and the line without it, as the engine
// wants it. Changes formule_ligne of `feuille` and erreur_formule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/signs.hpp"

// Cuts the old result from `ligne`, whose signs are known, and leaves in formule_ligne of the line what is to be
// evaluated. `correct` is false when a control character stands in that: the box has told it.
void effaceEgalite(std::string_view& ligne, Signes signes, std::int16_t numero, bool& correct) noexcept;

// Length of what stays of a line in front of an old result, or npos when nothing is to be cut: a comment, the
// echo of a statistics result, a line without a result.
std::size_t fin_gardee(std::string_view ligne);

// What stands behind a line without the " = " in front of it.
std::string_view sans_egal(std::string_view resultat);
