// Numbers of a cell, built on std::from_chars and std::to_chars. Changes no state.
#include "exchange/data_number.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "base/codepage.hpp"

namespace {

// Blanks and apostrophes that stand between thousands.
bool est_milliers(char c) { return c == ' ' || c == '\xA0' || c == '\'' || c == '\x92'; }

// True when exactly three digits stand from `debut` on.
bool groupe_de_trois(std::string_view texte, std::size_t debut) {
    std::size_t n = 0;
    while (debut + n < texte.size() && est_chiffre(texte[debut + n])) ++n;
    return n == 3;
}

// Takes the whole part, whose groups `separe` may part, to `nombre`. One to three digits stand in front of the
// first group. False when the groups are wrong.
template <class Separe>
bool prend_partie_entiere(std::string_view texte, std::size_t& i, std::string& nombre, Separe&& separe) {
    char marque = 0;
    std::size_t chiffres_en_tete = 0;
    for (; i < texte.size(); ++i) {
        if (est_chiffre(texte[i])) {
            if (marque == 0) ++chiffres_en_tete;
            nombre += texte[i];
            continue;
        }
        if (!separe(texte[i])) break;
        const bool suite = marque == 0 || marque == texte[i];
        if (!suite || chiffres_en_tete == 0 || chiffres_en_tete > 3 || !groupe_de_trois(texte, i + 1)) return false;
        marque = texte[i];
    }
    return true;
}

// Takes the decimals and the exponent; false unless the text ends behind them.
bool prend_reste(std::string_view texte, std::size_t i, char decimale, std::string& nombre) {
    if (i < texte.size() && texte[i] == decimale) {
        nombre += '.';
        for (++i; i < texte.size() && est_chiffre(texte[i]); ++i) nombre += texte[i];
    }
    if (std::none_of(nombre.begin(), nombre.end(), est_chiffre)) return false;
    if (i < texte.size() && (texte[i] == 'e' || texte[i] == 'E')) {
        nombre += 'e';
        ++i;
        if (i < texte.size() && (texte[i] == '+' || texte[i] == '-')) {
            if (texte[i] == '-') nombre += '-';
            ++i;
        }
        if (i >= texte.size()) return false;
        for (; i < texte.size() && est_chiffre(texte[i]); ++i) nombre += texte[i];
        if (!est_chiffre(nombre.back())) return false;
    }
    return i == texte.size();
}

}  // namespace

std::optional<double> lis_cellule(std::string_view cellule, char decimale) {
    const auto blanc = [](char c) { return c == ' ' || c == '\xA0' || c == '\t'; };
    while (!cellule.empty() && blanc(cellule.front())) cellule.remove_prefix(1);
    while (!cellule.empty() && blanc(cellule.back())) cellule.remove_suffix(1);
    std::string nombre;
    std::size_t i = 0;
    if (!cellule.empty() && (cellule[0] == '-' || cellule[0] == '+')) {
        if (cellule[0] == '-') nombre = "-";
        for (++i; i < cellule.size() && blanc(cellule[i]);) ++i;   // banks put a blank there
    }
    // The other mark parts thousands only where it can be nothing else: a decimal mark follows.
    const char autre = decimale == ',' ? '.' : ',';
    const bool avec_decimales = cellule.find(decimale) != std::string_view::npos;
    const auto separe = [&](char c) { return est_milliers(c) || (c == autre && avec_decimales); };
    if (!prend_partie_entiere(cellule, i, nombre, separe) || !prend_reste(cellule, i, decimale, nombre))
        return std::nullopt;
    double x = 0;
    const auto lu = std::from_chars(nombre.data(), nombre.data() + nombre.size(), x);
    if (lu.ec != std::errc() || lu.ptr != nombre.data() + nombre.size()) return std::nullopt;
    return x;
}

std::string texte_entier(double x) {
    std::array<char, 512> texte;   // 309 digits in front of the point, or 16 behind 324 zeros
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), x, std::chars_format::fixed);
    return {texte.data(), ecrit.ptr};
}

std::string texte_court(double x, char decimale) {
    std::array<char, 64> texte;
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), x);
    std::replace(texte.data(), ecrit.ptr, '.', decimale);
    return {texte.data(), ecrit.ptr};
}
