// Recovery: while a sheet differs from its file, its text, cursor and name stand in a recovery file of
// its own, in the folder "secours" beside the settings. One instance, `reprise`; the events say when to
// look, and files are ordered from the port, which writes them beside the program's work.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "documents/recovery_file.hpp"

// An open sheet as its recovery file has it, or is about to.
struct FeuilleReprise {
    std::string chemin;                          // of the recovery file
    FicheReprise fiche;
    std::shared_ptr<const std::string> texte;    // shared with the one who writes it
    bool enregistree = false;                    // its own file has this text: no recovery file
};

struct Reprise {
    std::map<std::uint64_t, FeuilleReprise> feuilles;  // by the sheet's identity
    std::string marque;              // of this run, in the names of its files
    std::uint64_t numero = 0;        // of the last file ordered
    std::uint64_t montree = 0;       // identity of the sheet that the last one shows
    int commandes = 0;               // commands at work, one within the other
    bool a_refaire = false;          // a file could not be written: all are ordered again
    bool echec_dit = false;          // the user knows
};
extern Reprise reprise;

std::string dossier_secours();       // of the recovery files, with its final separator
std::string dossier_reprise();       // of the sheets that the user didn't take back, likewise

// A command is at work: documents and text may not belong together before its end.
struct CommandeEnCours {
    CommandeEnCours() { ++reprise.commandes; }
    ~CommandeEnCours() { --reprise.commandes; }
    CommandeEnCours(const CommandeEnCours&) = delete;
    CommandeEnCours& operator=(const CommandeEnCours&) = delete;
};

// Before a command that may take long, lose its way or wait for the user: what was typed until then is
// ordered to be written. Nothing inside a command.
void releve_reprises() noexcept;

// After an event: files of sheets that were saved or closed go, and a changed sheet is looked at soon.
void suit_reprises() noexcept;

// The sheet of that number has just gone to its own file, though its mark says that it differs.
void note_enregistree(int rang) noexcept;

void efface_reprises() noexcept;     // a regular end: all files of this run go
bool garde_reprises() noexcept;      // an end without a question: true when all is on the disk
