// The words that the user types, and where they stand: in the text that is shown, in the open sheets as
// the program holds them, in the files. Changes nothing.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "support/memory.hpp"

using Mots = std::set<std::string>;
using Fichiers = std::map<std::string, Mots, OrdreChemin>;   // words of each file, by its full path

// The words "k12k" of a text. What stands after " = " is a result, which the program writes and
// replaces: a word there isn't the user's any more.
void ajoute_mots(Mots& mots, std::string_view texte);

Mots mots_montres();                       // of the sheet that is shown; none in another view
Mots mots_changes();                       // of the open sheets that are marked as changed
Mots mots_ouverts(std::string_view chemin);   // of the open sheet of that file

// Of the files that keep a text for the user: sheets, recovery files that are whole, sheets set aside.
// Working copies, backups and the settings keep nothing, nor does a recovery file that is about to go.
Fichiers mots_des_fichiers();
Mots mots_sur_disque();
