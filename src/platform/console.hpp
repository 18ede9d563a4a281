// What a program gets from the terminal, a pipe or another program: its arguments and its streams.
// One file per system stands behind this header.
#pragma once

#include <string>
#include <vector>

// The arguments behind the program's name, in UTF-8. From then on the standard streams carry bytes
// as they are, and a terminal shows them as UTF-8.
std::vector<std::string> prepare_console(int argc, char** argv);
