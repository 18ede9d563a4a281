// What is typed, pasted or dropped into the sheet, or stands in a file that is opened, brought to its
// code page: the common characters that it lacks become what the sheet knows, the others are refused.
// Holds no state and knows no toolkit.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The text in UTF-8 with characters of the code page alone and LF as line end. Nothing, and the
// character in `refuse`, when one can't be brought there; 0 there when the bytes are no UTF-8.
std::optional<std::string> texte_accepte(std::string_view utf8, char32_t& refuse);

// The letter with its accent, or 0 when the code page has none: 'e' and U+0301 give U+00E9.
char32_t compose(char32_t lettre, char32_t accent);

// True for an accent that follows its letter.
bool est_accent(char32_t c);

// A whole text in the code page: what can't be brought there has left a question mark.
inline constexpr std::size_t kPerdusCites = 5;
struct Perdu {
    std::size_t ligne;               // where it stood, from 1
    char32_t caractere;
};
struct TexteAmene {
    std::string texte;               // Windows-1252, LF as line end
    std::size_t perdus = 0;          // characters that can't be brought there
    std::vector<Perdu> premiers;     // the first of them, kPerdusCites at most
    std::size_t ligne_fausse = 0;    // line of the first byte that is no UTF-8, 0 when all are; such a
                                     // byte is kept as it stands
};
TexteAmene amene_en_page(std::string_view utf8);

// The character by its code: "U+2264".
std::string code_unicode(char32_t caractere);

// What the user hears of a refused character: "caractère refusé U+2264", in UTF-8.
std::string mots_refus(char32_t caractere);
