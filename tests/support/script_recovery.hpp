// What a script does with recovery files, and what it sees of them.
#pragma once

#include "support/script_words.hpp"

void panne_secours(Etape& etape);   // recovery files can't be written, by that failure; 0 repairs it
void jours(Etape& etape);           // so many days go by
void termine_session(Etape& etape); // the system's session ends, and the program with it
void voit_secours(Etape& etape);    // the recovery file of a sheet, by its path, has this text
void voit_combien(Etape& etape);    // so many recovery files
