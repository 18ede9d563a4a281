// The working copies: every open sheet but the one in `txt` lives in a file of the working folder.
// Change nom_copie, the current row, the copies and the text.
#pragma once

#include <string>

void rangenomcopie(const std::string& nomfic);   // nom_copie(nombre_document), on purpose not the current one
void EcritNomCopie();                            // notes the selection, writes `txt` to its copy; failures go up
void LitNomCopie(bool neuve = false) noexcept;   // fills `txt` from the current copy; `neuve`: just copied
                                                 // from a file, whose coding may be another

// A text file read line by line: each line with CR LF behind it, whatever its line ends are.
// Raises the file's failure.
std::string lit_lignes(const std::string& chemin);
