// What is typed, pasted or dropped into the sheet, or stands in a file that is opened, brought to its
// code page: the common characters that it lacks become what the sheet knows, the others are refused.
// Holds no state and knows no toolkit.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A character of a text that came, and where it stands there; lines and columns count from 1.
struct SigneVenu {
    char32_t caractere = 0;          // 0: bytes that are no UTF-8
    std::size_t ligne = 1, colonne = 1;
};

struct TexteSaisi {
    std::string texte;               // UTF-8 with characters of the code page alone, LF as line end
    std::size_t caracteres = 0;      // of it; a line end is one
    std::optional<SigneVenu> refuse; // the first that can't be brought there: nothing goes in then
    std::optional<SigneVenu> muet;   // the first that the calculation would pass over without a word; a
                                     // blank: one within a number
};

// What is typed or pasted, in UTF-8, after what its line has already. In front of a "!", where the line
// is calculated, signs of arithmetic that keyboards and documents write become those that calculate.
TexteSaisi saisit(std::string_view utf8, std::string_view devant);

// The same for a text that isn't calculated: an answer. Nothing, and the character in `refuse`, when one
// can't be brought there.
std::optional<std::string> texte_accepte(std::string_view utf8, char32_t& refuse);

// What the user hears of it, in UTF-8: "" when the sheet has got what was typed.
std::string mots_saisie(const TexteSaisi& saisi, std::string_view utf8);
std::string mots_collage(const TexteSaisi& saisi);

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
