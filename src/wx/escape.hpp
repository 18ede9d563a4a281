// The Escape key while the program calculates and takes no event. One file per system implements this
// header.
#pragma once

// A calculation has begun: a press from before it doesn't count.
void oublie_echap();

// True when Escape has been pressed in the program since the last look; it is done with by that, and closes
// no box that follows.
bool echap_tapee();
