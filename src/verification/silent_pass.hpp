// A pass that only looks: nothing is heard of it and nothing stays changed. Who asks is told of each line.
#pragma once

#include <string>

#include "sheet/observer.hpp"

// Runs the pass over the text and tells `ligne` of each line, those below a failed one too. Sheet, variables,
// matrices, data set, random generator and message line are afterwards as they were; the sheet's own pass may
// not be running. False when the sheet could not be read to its end.
bool parcourt_en_silence(const std::string& texte, void (*ligne)(const LigneObservee& observee));
