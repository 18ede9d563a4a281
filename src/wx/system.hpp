// The surroundings of the program: display, clock, folders, command line.
#pragma once

#include <string>
#include <vector>

// Installs the surroundings in the port. `arguments` is what follows the program's name, in UTF-8.
void installe_systeme(const std::vector<std::string>& arguments);
