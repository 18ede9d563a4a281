// Recovery files of the real program: when they are looked at, and who writes them.
#pragma once

// Puts them in the port and starts the writer. `a_nous`: no other program works on the folder.
void installe_reprises(bool a_nous);
// The program is over: what is left is written.
void ferme_reprises();
