// Real files, read and replaced whole. The procedures take paths in the system's own bytes, UTF-8 on
// Windows; the port's filler takes them in Windows-1252, as the core writes them. One file per system
// stands behind this header.
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
// link keeps pointing where it did. What a save that was killed has left beside the file goes with the
// next one; two programs that save it at once each write their own file.
ResultatFichier remplace_fichier(const std::string& chemin, const std::string& contenu);

// Puts the real files in the port. Lists are alphabetical, case ignored; a name that the code page
// can't write is left out of them. A move of a file onto itself is refused; another file that bears
// the name gives way.
void installe_fichiers_reels();
