// The state of the whole program as named parts, for tests that say what a step changes and that it
// changes nothing else. Holds no state.
#pragma once

#include <map>
#include <string>
#include <vector>

// Value of each part by its name: "texte", "curseur", "reglages", "fichiers", "modes", "documents",
// "modifies", "controles", "menus", "message", "entendu", "recherche", "variables", "aide",
// "traitee".
using Instantane = std::map<std::string, std::string>;

Instantane prend_instantane();

// Names of the parts that differ, in alphabetical order.
std::vector<std::string> differences(const Instantane& avant, const Instantane& apres);

// What was heard, one thing a line: kind, blank, text, and "|" and the proposed text when there is
// one.
std::string tout_entendu();

// Forgets what was heard, and what the message line last said.
void oublie_entendu();
