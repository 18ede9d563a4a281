// The pass over the sheet: reads every line once, calculates it and writes the new text. Changes
// `feuille`, the context, the text of the port and the changed flag of the current document.
#pragma once

void recalcul() noexcept;
