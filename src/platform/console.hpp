// What a program gets from the terminal, a pipe or another program: its arguments and its streams.
// One file per system implements this header.
#pragma once

#include <string>
#include <vector>

// The arguments after the program's name, in UTF-8. From then on the standard streams carry bytes
// as they are, and a terminal shows them as UTF-8.
std::vector<std::string> prepare_console(int argc, char** argv);

// True when what is written there is shown by a terminal.
bool sortie_au_terminal();
bool erreurs_au_terminal();

// While it lives, a request to end the program (Ctrl+C, or the system's) waits, so that a file that is
// being written is not left in pieces; the program ends after it.
struct SansInterruption {
    SansInterruption();
    ~SansInterruption();
    SansInterruption(const SansInterruption&) = delete;
    SansInterruption& operator=(const SansInterruption&) = delete;
};
