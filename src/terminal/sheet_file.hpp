// A sheet as bytes of a file or of a pipe, and as the text that the program shows: code page and line
// ends are brought to the sheet's form on the way in and back to the file's on the way out.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

enum class Codage { windows_1252, utf8, utf8_avec_marque, utf8_exact, utf16_petit, utf16_grand };
enum class FinsDeLigne { cr_lf, lf, cr };

struct TexteFeuille {
    std::string texte;                            // Windows-1252, CR LF, without the last line end
    Codage codage = Codage::windows_1252;         // how the bytes were coded
    FinsDeLigne fins = FinsDeLigne::lf;           // line ends of the bytes, by their first one
    bool fin_finale = true;                       // the bytes closed with a line end
};

// Why the bytes are no sheet.
struct RefusFeuille {
    std::size_t ligne = 1;                        // line of the refused character, from 1
    char32_t caractere = 0;                       // 0: the bytes are no UTF-8
};

// Codage of a file that names none: by its mark, or UTF-8 when it is valid UTF-8 and holds more than ASCII.
Codage devine_codage(std::string_view octets);

// The sheet that the bytes hold; nothing, with `refus` set, when they can't be brought to the code page.
std::optional<TexteFeuille> lit_feuille(std::string_view octets, Codage codage, RefusFeuille& refus);

// Bytes of a sheet, each line with its line end.
std::string ecrit_feuille(std::string_view texte, Codage codage, FinsDeLigne fins, bool fin_finale);
