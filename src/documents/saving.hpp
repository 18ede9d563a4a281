// Saving: the backup, the save under the same or another name, the question before a sheet is lost.
// Change files, the settings table and the documents.
#pragma once

#include <string>

void sauvebak();                 // the current document's file to its backup; a failed copy passes
void rangefichier();             // saves under its own name; failures go up
bool enregistrersous() noexcept; // saves under a chosen name; false: not saved, cancelled or told
// True for what the program deletes and overwrites by itself: backups, working copies, recovery files,
// sheets that were not taken back, the settings and the options, the mark of a new installation.
bool reserve(const std::string& nom);
bool marque_disparues();         // an open sheet whose file has gone, or will, is changed; true: there is one
bool sauvegarde();               // asks about a changed sheet; false: not dealt with, cancelled or told
void mnuEnregistrerItem();
void mnuEnregistrerSousItem();
