// What a change of sheet or of number mode brings: the variables are cleared.
#include "shell/status.hpp"

#include "engine/identifiers.hpp"

void AfficheStatus() { razVar(); }
