// Lines and cursor in the text of the port: on which line, in which column, what does the line say.
// Positions count from 1, SelStart from 0 (the characters in front of the cursor); lines and columns
// count from 1. SurNumero and find move the cursor, the others change nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Where the selection starts and ends, from 0. Between the two characters of a line end, where SurNumero leaves the
// cursor, it is the first column of the line below, for every command and for typing.
std::size_t curseur();
std::size_t fin_selection();

std::size_t Debutligne();                            // line feed that ends the previous line, or 1
std::size_t FinLigne();                              // next carriage return, or length + 1
std::size_t WhereX();                                // column of the cursor
std::string extraitLigne(std::size_t position);      // text of the line that holds the position
std::int32_t numero_de_ligne(std::string_view texte, std::size_t position);   // its line number in `texte`
std::int16_t NumeroTxt(std::string_view texte, std::size_t position);   // the same; failure 6 beyond 32,767

// Extent of a line in bytes from 0, its line end not included; that of line 1 when the line doesn't
// exist.
struct Etendue {
    std::size_t debut;
    std::size_t fin;
};
Etendue etendue_ligne(std::int32_t numero);
Etendue etendue_ligne(std::string_view texte, std::int32_t numero);   // the same in `texte`

// What stands in that extent of `texte`.
inline std::string_view mots_de(std::string_view texte, const Etendue& ligne) {
    return texte.substr(ligne.debut, ligne.fin - ligne.debut);
}

// True when a line of `texte` can end at `position` (from 0, at most its length).
bool est_fin_de_ligne(std::string_view texte, std::size_t position);

// Extent of the line that holds a position (from 0); between the two characters of a line end it is the line
// below.
Etendue etendue_autour(std::string_view texte, std::size_t position);

// Puts the cursor on the line `numero`, from 1: between the two characters of the line end in front of it,
// which all procedures here take for the line itself (kept: see the oddities, cursor-in-the-line-end). Line
// 1 and a line that doesn't exist leave the cursor where it is.
void SurNumero(std::int32_t numero);

// Reads the line at `position` of `texte`, as a view of it, and moves `position` past its line end. `fin` is true on
// the last line only; a text that closes with a line end has one more, empty, last line. `trouve` is
// false past the end.
void LireLigne(std::string_view& ligne, std::string_view texte, std::size_t& position, bool& fin,
               bool& trouve);

// Looks for `chaine` (in capitals) from `debut` on, whatever the case; puts the cursor one character
// inside the match. -1 when there is none: the cursor stays.
std::ptrdiff_t find(std::string_view chaine, std::size_t debut);
