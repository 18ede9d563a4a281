// Sheets of words thrown together, right or wrong.
#pragma once

// Runs `nombre` of them; the number of those that are wrong.
int essaie_soupes(int nombre);
