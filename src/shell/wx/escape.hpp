// The Escape key while the program calculates and takes no event. One file per system stands behind this
// header.
#pragma once

// True when Escape has been pressed in the program since the last look; it is done with by that, and closes
// no box that follows.
bool echap_tapee();
