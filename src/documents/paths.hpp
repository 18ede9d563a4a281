// Names of files and folders. The separators are "\" and ":", and "/" too where the system's is "/".
// Change no state.
#pragma once

#include <string>
#include <string_view>

bool est_separateur(char c);                          // "\\", or the system's own
std::string cheminSeul(std::string_view chemin);      // folder part, with its final separator
std::string NomFichSeul(std::string_view chemin);     // what stands behind the last separator
std::string ajoutbackslash(std::string_view chemin);  // with a final separator
std::string Sansbackslash(std::string_view chemin);   // without it; "" below two characters
bool FichierExistant(const std::string& chemin);      // its length can be had

// The name cut behind the third character that follows its FIRST dot, as saving and opening do on
// purpose: "a.b.VXT" is cut to "a.b.V".
std::string coupe_premier_point(std::string_view nom);
