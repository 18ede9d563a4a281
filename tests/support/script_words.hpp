// The words of one step of a script: bare words, and texts in double quotes. Holds no state.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct Mot {
    std::string texte;  // a bare word in UTF-8, a quoted text in Windows-1252
    bool cite;          // it stood in double quotes
};

// The words of a step, and how many of them its verb has taken.
struct Etape {
    std::vector<Mot> mots;
    std::size_t pris = 0;
};

// What a step raises when it fails; UTF-8.
struct EtapeFausse {
    std::string attendu;
    std::string obtenu;
};

// The words of a line (UTF-8). Refuses a text without its closing quote, a character that the sheet
// can't hold, and a code above 255.
Etape decoupe(std::string_view ligne);

bool suit_texte(const Etape& etape);  // the next word is a quoted text
bool suit_mot(const Etape& etape);    // ... a bare word
// The next word; each refuses a word of another kind, and the end of the step.
std::string prend_texte(Etape& etape);  // Windows-1252
std::string prend_mot(Etape& etape);    // UTF-8
double prend_nombre(Etape& etape);
long prend_entier(Etape& etape);                            // not above two thousand million
long prend_rang(Etape& etape, long premier, long dernier);  // an integer of that range

// Windows-1252 text as it would be quoted in a script, in UTF-8.
std::string cite(std::string_view texte);

// Fails unless both are the same.
void compare(std::string_view attendu, std::string_view obtenu);  // Windows-1252
void compare(double attendu, double obtenu);

// Fails unless the condition holds.
void exige(bool condition, std::string attendu, std::string obtenu);
