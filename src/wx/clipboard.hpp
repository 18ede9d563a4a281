// The system's clipboard behind the port. Holds no state.
#pragma once

void installe_presse_papiers();
