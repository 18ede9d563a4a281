// Real files, read and replaced whole. The procedures take paths in the system's own bytes, UTF-8 on
// Windows; the port's slots take them in Windows-1252, as the core writes them. One file per system
// implements this header.
#pragma once

#include <cstddef>
#include <string>

// What happened to a file operation: 0 done, otherwise a failure number (53 absent, 61 disk full,
// 75 no access, 76 folder absent).
using ResultatFichier = int;

// The longest file that is read: a pipe without end must not fill the memory of the machine.
inline constexpr std::size_t kOctetsMaxi = std::size_t{256} << 20;

// Reads the whole file, or a pipe to its end. Refuses folders and devices, and with failure 7 what is
// longer than kOctetsMaxi.
ResultatFichier lit_fichier(const std::string& chemin, std::string& contenu);

// Whether a file, a folder of that name is there.
bool est_fichier(const std::string& chemin);
bool est_dossier(const std::string& chemin);

// Whether the file may be replaced: 0, or the failure that replacing it would meet first.
ResultatFichier verifie_ecriture(const std::string& chemin);

// Writes the file whole: beside its place, flushed to the disk, then renamed over it, so that it is
// the old one or the new one, never half of it. The new file keeps the rights of the old one, and a
// link keeps pointing where it did. What a save that was killed has left beside the file goes with the
// next one; two programs that save it at once each write their own file. With `modele` the new file has
// the rights of that one, so that what is copied out of a private file is private too.
ResultatFichier remplace_fichier(const std::string& chemin, const std::string& contenu,
                                 const std::string& modele = "");

// True when the file has other names, which a replacement would leave with the old content.
bool a_d_autres_noms(const std::string& chemin);

// Writes into the file itself, so that its other names lead to the new content. Where that fails the old
// content, given too, is put back.
ResultatFichier recrit_fichier(const std::string& chemin, const std::string& ancien,
                               const std::string& contenu);

// Puts the real files in the port. Lists are alphabetical, case ignored; a name that the code page
// can't write is left out of them. A move of a file onto itself is refused; another file that bears
// the name gives way.
void installe_fichiers_reels();
