// What a pass leaves, for who takes no part in one: whether it ran, how long the sheet is, and the results
// that others give it to write. It stands in the tables of the sheet (state/sheet.hpp).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"

// Words of the pass and of calcul_chaine, for the files that do parts of their work.
inline constexpr Procedure kRecalcul{" sur recalcul"_fr, false};
inline constexpr Procedure kCalculChaine{" sur calcul_chaine"_fr, false};

// Passes begun since the start; only a change of it counts.
std::uint32_t passes_commencees();

// Whether the last pass could not number the lines: nothing was done.
bool passe_refusee();

// Lines of the sheet that was calculated last.
int lignes_de_la_feuille();

// Lines to write below the current line.
std::string& resultat_bloc();

// Notes that this pass has a result of statistics, of pairs or of single values.
void note_statistiques(bool couples);

// Says that the column calculation runs the pass, or that it no longer does.
void note_calcul_en_colonne(bool en_colonne);

// Puts a text after the line in calculation. Fails where no line is.
void pose_resultat_courant(std::string_view texte);

// Gives a line what is evaluated of it: no old result, no comment. Fails where no line is.
void pose_formule(std::int16_t numero, std::string_view texte);

// Room for the formulas, and for the values, of so many lines.
void prepare_formules(std::size_t lignes);
void prepare_valeurs(std::size_t lignes);

// Forgets the results of all lines.
void efface_resultats();

// Puts the tables back to their initial values.
void reinitialise_feuille();
