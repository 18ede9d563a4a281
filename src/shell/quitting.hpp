// How the program ends.
#pragma once

void quitter();                  // saves what the user wants, writes the settings, ends the program
void CmdQuitter();               // cancels a choice of colour, or quits
