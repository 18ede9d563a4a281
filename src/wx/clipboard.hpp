// The system's clipboard behind the port. Holds no state.
#pragma once

#include <string_view>

void installe_presse_papiers();

// Puts a text in UTF-8 with CR LF there, to stay when the program has ended. False where it can't be put there.
bool pose_presse_papiers(std::string_view utf8);
