// How the program comes up and goes down. Change every subsystem.
#pragma once

void demarre() noexcept;         // the load of the window, all steps in their order
void quitter();                  // saves what the user wants, writes the settings, ends the program
