// The statistics: sums of a data set, group by group, and what follows from them. The results are
// ordinary variables of the sheet, one letter each. Changes `moteur` and `statistiques`.
#pragma once

// Adds one group of STATX: l_argument1 is x, l_argument2 its frequency.
void StatX() noexcept;

// Adds one group of STATXY: l_argument1 is x, l_argument2 is y, l_argument3 the frequency.
void statxy() noexcept;

// Sum of the squared distances of the pairs to the line Y = a X + b.
double ResXy(double a, double b) noexcept;

// The calls STATX and STATXY, from their first argument, which stands in l_valeur, to their closing
// bracket: `resultat` becomes the number of groups, or 0 when the call was refused.
void compile_statx(double& resultat) noexcept;
void compile_statxy(double& resultat) noexcept;
