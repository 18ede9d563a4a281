// Plays a sequence on a fresh program and knows which words the user has typed and nobody has discarded:
// not the user, by deleting them, bringing them after a result or giving a file up to another one; not a
// neighbour, who deletes or replaces the file that has them; not a disk that refuses every recovery file,
// once the user has been told. Whatever is missing then the program has lost. Changes every subsystem.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>

#include "lost/sequence.hpp"
#include "lost/words.hpp"

struct Joueur {
    Mots mots;            // typed and not discarded, as they stand in a text
    Fichiers voles;       // of them, by the file that a neighbour took away: only the program still has them
    Fichiers remplaces;   // words of the files that the user gives up in the step that is played
    std::set<std::string, OrdreChemin> touches;   // files that a neighbour has changed
    std::size_t panne_depuis = 0;   // place of the journal from which on a recovery file couldn't be written
    std::string faute;    // what was wrong before the end
    Etapes jouees;        // the steps that were played, for the report
};

void nouvelle_partie(Joueur& j);
void joue(Joueur& j, const std::string& etape);

// At the end: every word stands in a sheet that the user can reach or in a file, and a sheet that is
// held for saved is in its file. "" or what is wrong.
std::string verifie(Joueur& j);
