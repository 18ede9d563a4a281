// The column total: the pass, the sum of all lines, and the new last line "Z=". Changes `feuille`,
// the variable Z and the text of the port.
#pragma once

// Failures go up to the command.
void calcul_colonne();
