// What a user does, as steps of the language of the scripts, drawn one after the other while the
// program runs: typing, commands, answers, failing files, files that go, the end and the next start.
// Holds the state of one sequence alone.
#pragma once

#include <string>
#include <vector>

#include "property/choice.hpp"

using Etapes = std::vector<std::string>;   // UTF-8, as in tests/program

// The steps that set the files up before a sequence, and start the program.
Etapes tire_depart(Tirage& t);

// The steps of one event: answers that are prepared, and the action. `mot` is the number of the next
// word that the user types; it grows by the words typed.
Etapes tire_evenement(Tirage& t, int& mot);
