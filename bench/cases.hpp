// The parts of the table. Each measures, prints its rows, and refuses with an exception what fails
// or gives another result than it should.
#pragma once

// Beside other programs: cases_rivals.cpp.
void compare_feuille_mixte(int repetitions);      // the largest sheet, beside muParser and bc
void compare_feuille_fonctions(int repetitions);  // the same with nothing but functions
void compare_aires(int repetitions);              // the area, beside muParser's bytecode

// This program beside itself, on more of the same: cases_growth.cpp.
void mesure_doublement(int repetitions);    // 8,000 to 16,000 to 32,000 lines
void mesure_memoire_passe();                // peak of the resident memory
void mesure_matrices(int repetitions);      // determinant and inverse
void mesure_statistiques(int repetitions);  // pairs, data sets, sorted data sets
void mesure_tabulation(int repetitions);    // the table of a function
void mesure_surveillance(int repetitions);  // a pass that is watched by the check of the sheet

// The editing commands beside themselves: cases_editing.cpp.
void mesure_edition(int repetitions);  // replacing in the whole text, searching backwards

// Many sheets on all cores beside one: cases_many.cpp.
void mesure_feuilles(int repetitions);

// The sound of a curve beside the time that a listener may wait: cases_sound.cpp.
void mesure_son(int repetitions);
