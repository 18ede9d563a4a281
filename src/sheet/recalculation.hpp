// The pass over the sheet: reads every line once, calculates it and writes the new text. Changes
// `feuille`, the context, the text of the port and the changed flag of the current document.
#pragma once

void recalcul() noexcept;

// Writes the results of the last pass anew, in the number mode of the moment; they reach the text with the
// next pass. Without a pass, runs one. No command needs it so far.
void re_valeur() noexcept;
