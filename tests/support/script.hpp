// Runs scripts: what a user does with the whole program, and what he sees and hears, one step a line,
// over the in-memory port. A fresh program for every script. One instance of state, `script`.
//
//   fichier "C:\A.VXT" "A=3¶B=A*2"    a file of these bytes exists; also dossier, supprime
//   répond "12"                       prepares the answer to the next question; also répond oui, annule
//   démarre "C:\A.VXT"                the program starts; redémarre: once more, on the same files
//   choisit mnuEntierItem             chooses a menu item; also clique CmdQuitter, ferme
//   touche Ctrl+Maj+S                 presses and releases a key; also tape "2+3¶", curseur 4 2
//   entend message "B=A*2 = 6"        the next thing heard; ignore: all that was heard is forgotten
//   voit texte "A=3¶B=A*2"            what the window shows, and what files and settings hold
//
// Texts stand in double quotes: ¶ is a line end, {N} the character of decimal code N, "" one quote.
// "#" at the start of a line makes it a comment. docs/script-language.md has every step.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "shell/keys.hpp"

// A step that failed; texts in UTF-8.
struct EchecEtape {
    int ligne;          // of the script, from 1
    std::string etape;  // the step as written
    std::string attendu;
    std::string obtenu;
};

// The two ends of a selection made by keys: where it began, and the one that moves.
struct BoutsSelection {
    std::size_t fixe = 0;
    std::size_t mobile = 0;
};

struct Script {
    bool strict = true;        // all that was heard must be told before the next action
    bool commence = false;     // the program has started
    std::size_t debut = 0;     // up to here the journal tells nothing of an end of the running program
    std::size_t racontes = 0;  // elements of the journal that were told
    int regards = 0;           // steps that have looked at something
    BoutsSelection bouts;      // of the last selection that the hand made
    FrappeTouche tenus;        // modifiers that the hand holds down
    std::vector<EchecEtape> echecs;
};
extern Script script;

// Empties the memory and every subsystem; the program isn't started yet.
void nouveau_script(bool strict);

// Runs one line of a script; a failure is added to script.echecs.
void execute_etape(int ligne, std::string_view texte);

// Runs a whole script (UTF-8) on a fresh memory. A script that looks at nothing fails too.
std::vector<EchecEtape> execute_script(std::string_view texte);

// True from the start of the program to its end.
bool programme_en_marche();
