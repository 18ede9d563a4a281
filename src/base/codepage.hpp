// The sheet's code page, Windows-1252: literals of the program, capitals, trimming, and the way to
// and from UTF-8. Positions and lengths are bytes. Holds no state.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Unicode values of the codes 80 to 9F; the five codes without a sign stand for the control
// character of the same number, so that every byte goes to UTF-8 and back.
inline constexpr std::array<char32_t, 32> kUnicode80a9F = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

// What ends a line of a sheet, and what a file in UTF-8 may begin with.
inline constexpr std::string_view kFinDeLigne = "\r\n", kMarqueUtf8 = "\xEF\xBB\xBF";

// Code of a Unicode character in the code page, or -1 when it has none.
constexpr int code_de(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    for (std::size_t i = 0; i < kUnicode80a9F.size(); ++i)
        if (kUnicode80a9F[i] == c) return static_cast<int>(0x80 + i);
    return -1;
}

// One UTF-8 character read from the start of a text.
struct CaractereLu {
    char32_t caractere;   // its Unicode value
    std::size_t octets;   // bytes that it takes; 0: the text is no UTF-8 here
};

// Reads the first character of `texte` (not empty). Refuses overlong forms and surrogates.
constexpr CaractereLu lit_utf8(std::string_view texte) {
    const auto octet = [&](std::size_t i) { return static_cast<unsigned char>(texte[i]); };
    const unsigned char a = octet(0);
    if (a < 0x80) return {a, 1};
    const std::size_t n = a >= 0xF0 && a < 0xF5 ? 4 : a >= 0xE0 ? 3 : a >= 0xC2 ? 2 : 0;
    if (n == 0 || a >= 0xF5 || texte.size() < n) return {0, 0};
    char32_t c = a & (n == 2 ? 0x1F : n == 3 ? 0x0F : 0x07);
    for (std::size_t i = 1; i < n; ++i) {
        if ((octet(i) & 0xC0) != 0x80) return {0, 0};
        c = (c << 6) | (octet(i) & 0x3F);
    }
    const char32_t minimum = n == 2 ? 0x80 : n == 3 ? 0x800 : 0x10000;
    if (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return {0, 0};
    return {c, n};
}

// A literal of the source text (UTF-8) as a compile-time constant.
template <std::size_t N>
struct Litteral {
    char octets[N]{};
    consteval Litteral(const char (&source)[N]) { std::copy_n(source, N, octets); }
};

template <Litteral L>
struct LitteralFrancais {
    static constexpr auto convertit() {
        std::array<char, sizeof(L.octets)> sortie{};
        std::size_t n = 0;
        std::string_view reste(L.octets, sizeof(L.octets) - 1);
        while (!reste.empty()) {
            const CaractereLu lu = lit_utf8(reste);
            if (lu.octets == 0 || code_de(lu.caractere) < 0) throw "not in the code page";
            sortie[n++] = static_cast<char>(code_de(lu.caractere));
            reste.remove_prefix(lu.octets);
        }
        sortie.back() = static_cast<char>(0);
        return std::pair{sortie, n};
    }
    static constexpr auto valeur = convertit();
    static constexpr std::string_view vue{valeur.first.data(), valeur.second};
};

// "texte"_fr: the text in Windows-1252; does not compile when a character is not in the code page.
// A reference, and not a copy: clang 14 dies of the copy in the initialiser of a variable.
template <Litteral L>
constexpr const std::string_view& operator""_fr() {
    return LitteralFrancais<L>::vue;
}

// The square as it is written, which a formula has as "^2".
inline constexpr char kCarreEcrit = "²"_fr[0];

// Capital of each code: a to z, and the letters E0 to FE except F7. "œ", "š", "ž", "ÿ" have none.
inline constexpr std::array<char, 256> kCapitale = [] {
    std::array<char, 256> t{};
    for (int c = 0; c < 256; ++c) {
        const bool petite = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
        t[static_cast<std::size_t>(c)] = static_cast<char>(petite ? c - 32 : c);
    }
    return t;
}();

constexpr char capitale(char c) { return kCapitale[static_cast<unsigned char>(c)]; }

// A digit; a letter that can be a variable's, A to Z; a letter of a word, small or with an accent ("œ", which the
// code page has far from the others, is none; "×" and "÷", which it has among them, are).
constexpr bool est_chiffre(char c) { return c >= '0' && c <= '9'; }
constexpr bool est_lettre(char c) { return c >= 'A' && c <= 'Z'; }
constexpr bool est_lettre_de_mot(char c) { return est_lettre(capitale(c)) || static_cast<unsigned char>(c) >= 0xC0; }

// The text in capitals.
std::string capitales(std::string_view texte);
void met_en_capitales(std::string& texte);
// Replaces `cible` by `texte` in capitals, keeping the target's memory.
void range_capitales(std::string& cible, std::string_view texte);

// The text without its blanks (code 32 alone) at both ends.
inline std::string_view sans_blancs(std::string_view texte) {
    std::size_t debut = 0, fin = texte.size();
    while (debut < fin && texte[debut] == ' ') ++debut;
    while (fin > debut && texte[fin - 1] == ' ') --fin;
    return texte.substr(debut, fin - debut);
}

// Adds one character, given by its Unicode value, in UTF-8.
void ajoute_utf8(std::string& sortie, char32_t c);

// Windows-1252 to UTF-8. Every byte has a form.
std::string vers_utf8(std::string_view texte);

// Where a text can't be brought to the code page.
struct RefusTexte {
    std::size_t octet;     // position of the refused character, bytes from 0
    char32_t caractere;    // its Unicode value; 0 when the bytes are no UTF-8
};
// UTF-8 to Windows-1252; a byte-order mark at the start is dropped. Nothing, with `refus` set, when
// a character is not in the code page or the text is no UTF-8.
std::optional<std::string> depuis_utf8(std::string_view texte, RefusTexte* refus = nullptr);

// True when the whole text is valid UTF-8 (plain ASCII is).
bool est_utf8(std::string_view texte);
