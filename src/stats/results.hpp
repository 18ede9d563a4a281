// The block of lines that a statistics line writes below itself. Changes resultat_bloc and the
// presence flags of `feuille`.
#pragma once

#include <string_view>

// Adds the result lines of "STATX" or "STATXY" to resultat_bloc, in the layout that the settings
// ask for, and records that such a result exists in this pass.
void ajoute_resultats_stat(std::string_view genre) noexcept;
