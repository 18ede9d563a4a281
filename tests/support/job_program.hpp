// The operation "programme" of the development probe: the whole program runs the steps of a script,
// and everything that a script could look at is in the result. Changes every subsystem.
#pragma once

#include <nlohmann/json.hpp>

// Starts the program on the job's files and runs its events. A step that fails doesn't stop the
// others.
void execute_programme(const nlohmann::json& tache);

// Adds the state of the window, the menus, the files, the documents and the settings, and what was
// heard; "erreur" when a step has failed.
void ajoute_etat_programme(nlohmann::json& resultat);
