// The order in which the files and folders of a folder are listed, the same on every system. Holds
// no state.
#pragma once

#include <string>
#include <vector>

// The alphabetical order: by capitals, then by the names themselves. Names are Windows-1252.
void range_noms(std::vector<std::string>& noms);
