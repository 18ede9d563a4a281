// A piece of a line, as it was typed, in French words: every sign has its word, so that it is heard whatever
// the reader's punctuation is. Holds no state.
#pragma once

#include <string>
#include <string_view>

// "virgule 5 plus 2" for ",5+2". Numbers and words stay as they are, functions and matrices are named.
std::string signes_en_mots(std::string_view texte);

// The name of a letter in capitals. "Y" among words is read "i", as the French word: it is called "i grec".
std::string mots_lettre(char lettre);

// Adds words behind others, with a blank between them.
void ajoute_mots(std::string& phrase, std::string_view mots);
