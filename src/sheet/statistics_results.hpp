// The block of lines that a statistics line writes below itself. Changes resultat_bloc and the
// presence flags of `feuille`.
#pragma once

#include <string_view>

// Adds the result lines of "STATX" or "STATXY" to resultat_bloc, in the layout that the settings
// ask for, and records that such a result exists in this pass.
void ajoute_resultats_stat(std::string_view genre) noexcept;

// What a line of such a block looks like, in either layout: its first line, its last one, any line between.
bool commence_resultats_stat(std::string_view ligne);
bool est_fin_resultats_stat(std::string_view ligne);
bool est_ligne_resultats_stat(std::string_view ligne);
