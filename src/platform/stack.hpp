// The stack of the main thread: makes it large enough for the deepest formula, and tells where it
// ends. One file per system implements this header.
#pragma once

// Room that the deepest formula needs: 32,767 brackets.
inline constexpr unsigned long kPileVoulue = 512ul << 20;

// Called first in main: starts the program again with a larger stack when the system gave it less
// than kPileVoulue and allows more. Returns when there is nothing (more) to gain.
void agrandit_pile(char** arguments);

// Lowest address that a recursion may reach on the calling thread, with a reserve left for what runs
// below it; nullptr when the system doesn't tell.
const char* limite_pile();
