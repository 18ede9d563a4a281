// What is typed, pasted or dropped into the sheet, brought to its code page: the common characters
// that it lacks become what the sheet knows, the others are refused. Holds no state and knows no
// toolkit.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The text in UTF-8 with characters of the code page alone and LF as line end. Nothing, and the
// character in `refuse`, when one can't be brought there; 0 there when the bytes are no UTF-8.
std::optional<std::string> texte_accepte(std::string_view utf8, char32_t& refuse);

// The letter with its accent, or 0 when the code page has none: 'e' and U+0301 give U+00E9.
char32_t compose(char32_t lettre, char32_t accent);

// True for an accent that follows its letter.
bool est_accent(char32_t c);

// What the user hears of a refused character: "caractère refusé U+2264", in UTF-8.
std::string mots_refus(char32_t caractere);
