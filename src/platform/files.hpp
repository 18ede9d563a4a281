// Real files, read and replaced whole. Paths are the system's, in its own bytes.
#pragma once

#include <string>

// What happened to a file operation: 0 done, otherwise a failure number (53 absent, 61 disk full,
// 75 no access, 76 folder absent).
using ResultatFichier = int;

// Reads the whole file.
ResultatFichier lit_fichier(const std::string& chemin, std::string& contenu);

// Whether the file may be replaced: 0, or the failure that replacing it would meet first.
ResultatFichier verifie_ecriture(const std::string& chemin);

// Writes the file whole: beside its place, flushed to the disk, then renamed over it, so that it is
// the old one or the new one, never half of it. The new file keeps the rights of the old one, and a
// link keeps pointing where it did.
ResultatFichier remplace_fichier(const std::string& chemin, const std::string& contenu);
