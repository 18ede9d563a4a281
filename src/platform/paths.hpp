// Names of files and folders. The separators are "\" and ":", and "/" too where the system's is "/".
// Change no state.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

bool est_separateur(char c);                          // "\\", or the system's own
std::string cheminSeul(std::string_view chemin);      // folder part, with its final separator
std::string NomFichSeul(std::string_view chemin);     // what stands after the last separator
std::string ajoutbackslash(std::string_view chemin);  // with a final separator
std::string Sansbackslash(std::string_view chemin);   // without it; "" below two characters
bool FichierExistant(const std::string& chemin);      // its length can be had

// Both name the same file: case and kind of separator don't count where the separator is "\\".
bool meme_chemin(std::string_view a, std::string_view b);
// The same, or two paths that lead to one file, through a link or from the current folder; it need not be
// there any more.
bool meme_document(const std::string& a, const std::string& b);

// Place of the first dot of the file's name; dots of its folders don't count. npos: none.
std::size_t premier_point(std::string_view nom);

// The name cut after the third character that follows its FIRST dot: "a.b.VXT" becomes "a.b.V". Kept: see
// the oddities, cut-at-first-dot.
std::string coupe_premier_point(std::string_view nom);
