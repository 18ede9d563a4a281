// Sheets as they are after a user's hand: changed between two passes, or with an error that is corrected.
#pragma once

// Each runs `nombre` sheets and answers the number of those that are wrong.
int essaie_lignes_gardees(int nombre);  // a line of the user is lost
int essaie_corrections(int nombre);     // a corrected line isn't calculated at once, or an error changes
