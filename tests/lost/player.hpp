// Plays a sequence on a fresh program and knows which words the user has typed and not discarded.
// Changes every subsystem.
#pragma once

#include <map>
#include <set>
#include <string>

#include "lost/sequence.hpp"

struct Joueur {
    std::set<std::string> mots;      // typed and not discarded, as they stand in a text
    std::set<std::string> ouverts;   // paths, in capitals, that a sheet has had
    std::set<std::string> touches;   // files, in capitals, that somebody else has changed
    Etapes jouees;                   // the steps that were played, for the report
};

void nouvelle_partie(Joueur& j);
void joue(Joueur& j, const std::string& etape);

// At the end: every word stands in a sheet that the user can reach or in a file, and a sheet that is
// held for saved is in its file. "" or what is wrong.
std::string verifie(Joueur& j);
