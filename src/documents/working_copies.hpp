// The working copies: every open sheet but the one in `txt` lives in a file of the working folder, and
// in memory too, so that a copy that can't be written or read costs no text.
// Change nom_copie, texte, copie_a_jour, the current row, the copies and the text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/failure.hpp"

inline constexpr Procedure kLitNomCopie{"sur litnomcopie", true};

// The path of the working copy that the sheet of that number has or would have under that name: no
// other open sheet has it.
std::string copie_pour(const std::string& nomfic, int rang);
// That path, or with a number after it where another open sheet has it already.
std::string copie_libre(const std::string& copie, int rang);
void rangenomcopie(const std::string& nomfic, int rang);   // sets nom_copie(rang)

bool feuille_montree();      // `txt` shows the current sheet, and no other text
void note_feuille();         // the text and the selection of `txt`, in memory; nothing in another view
void ecrit_copie(int rang);  // the text in memory to the copy; makes a folder that went again;
                             // failures go up
void EcritNomCopie();        // both, for the current sheet

// Copies a file to that copy, in a folder that is made again when it went: 0 or the failure.
int copie_vers_copie(const std::string& nomfic, const std::string& copie);

// A sheet read from its copy.
struct FeuilleLue {
    std::string texte;       // as `txt` shows it
    bool amenee = false;     // it came in another coding: the copy must be written anew
    std::uint64_t base = 0;  // sum of the bytes read
};
FeuilleLue lit_copie_neuve(const std::string& copie);   // just copied from a file; failures go up

// The text of that sheet from its copy. Where it can't be read one box tells, and the copy is written
// again from memory, so that the next attempt goes well. False then, and `texte` is as it was.
bool lit_copie(int rang, std::string& texte) noexcept;

void montre_feuille(std::string texte);  // as the current sheet, with the selection of its row
bool LitNomCopie() noexcept;             // fills `txt` from the current copy; false: told, `txt` as it was
void remontre_feuille() noexcept;        // after another view: from the copy, or else from memory

// A text file read line by line: each line with CR LF after it, whatever its line ends are.
// Raises the file's failure.
std::string lit_lignes(const std::string& chemin);
