// The real writer of recovery files: a thread of its own, which touches nothing of the program but the
// orders given here. Shared by both systems; the file operations are the port's.
#pragma once

#include <functional>
#include <string>

// Starts the thread. Without one to be had each order is carried out at once, by the one who gives it.
void ouvre_ecriture_reprises();
// Carries out what is left and ends the thread.
void ferme_ecriture_reprises();

// The orders of the port, see PortReprise. A file is written at most once a second, the newest order
// counts; attend() waits for that long no more. Any thread may call them.
void ordonne_reprise(const std::string& chemin, std::function<std::string()> contenu);
void ordonne_effacement(const std::string& chemin);
void attend_reprises();
int echec_reprises();

bool reprises_ecrites();             // no order is left
