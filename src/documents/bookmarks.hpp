// The bookmark of each sheet, kept with it in the settings: a position of the text. The commands change
// the current document's row and the cursor.
#pragma once

void mnuPoseRepereItem();        // notes the cursor
void mnuRepereItem();            // goes back there and says the line
