// One program at a time on a folder of files: two of them would share the settings and the working
// copies, and the end of one would take the other's sheets away.
#pragma once

#include <string>

// Takes that folder (UTF-8) until the program ends. False when a running program has it; a program that
// was killed has not.
bool prend_dossier(const std::string& dossier);
// Whether it is certain, once taken, that no other program has it: where no lock could be laid it isn't.
bool dossier_a_nous();
// Where the program that has the folder can be reached by another start: the same for both.
std::string adresse_du_programme(const std::string& dossier);
void rend_dossier();
