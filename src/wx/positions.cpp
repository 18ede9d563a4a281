// Texts and positions between the sheet and the text control. Changes no state.
#include "wx/positions.hpp"

#include <algorithm>
#include <optional>

#include "base/codepage.hpp"

namespace {

constexpr std::string_view kSymboleZero = "\xE2\x90\x80";   // U+2400

// Bytes of the line end at `i`, 0 when there is none.
std::size_t fin_de_ligne(std::string_view texte, std::size_t i) {
    if (texte[i] == '\n') return 1;
    if (texte[i] != '\r') return 0;
    return i + 1 < texte.size() && texte[i + 1] == '\n' ? 2 : 1;
}

// Bytes that the character, or the line end, at `i` of the sheet takes.
std::size_t largeur(std::string_view texte, std::size_t i) {
    const std::size_t fin = fin_de_ligne(texte, i);
    return fin == 0 ? 1 : fin;
}

// Bytes at the start of a text in UTF-8 that the code page has as they stand, line ends not among them.
std::size_t pareils(std::string_view utf8) {
    const auto autre = [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\n'; };
    return static_cast<std::size_t>(std::find_if(utf8.begin(), utf8.end(), autre) - utf8.begin());
}

// Each code 0 becomes its symbol; a text without any, as nearly all are, comes back as it was.
std::string remplace_zeros(std::string&& utf8) {
    for (std::size_t i = 0; (i = utf8.find('\0', i)) != std::string::npos; i += kSymboleZero.size())
        utf8.replace(i, 1, kSymboleZero);
    return std::move(utf8);
}

}  // namespace

std::string texte_du_controle(std::string_view feuille) {
    std::string sortie;
    sortie.reserve(feuille.size());
    for (std::size_t i = 0; i < feuille.size();) {
        const auto rang = static_cast<std::ptrdiff_t>(i);
        const auto fin = static_cast<std::size_t>(
            std::find_if(feuille.begin() + rang, feuille.end(), [](char c) { return c == '\n' || c == '\r'; }) -
            feuille.begin());
        sortie += feuille.substr(i, fin - i);
        if (fin < feuille.size()) sortie += '\n';
        i = fin < feuille.size() ? fin + fin_de_ligne(feuille, fin) : fin;
    }
    return remplace_zeros(vers_utf8(sortie));
}

std::string texte_de_la_feuille(std::string_view controle) {
    std::string sortie;
    sortie.reserve(controle.size() + controle.size() / 16);
    while (!controle.empty()) {
        if (const std::size_t n = pareils(controle); n > 0) {
            sortie += controle.substr(0, n);
            controle.remove_prefix(n);
            continue;
        }
        const CaractereLu lu = lit_utf8(controle.substr(0, 4));
        const int code = lu.caractere == 0x2400 ? 0 : code_de(lu.caractere);
        if (code == '\n')
            sortie += "\r\n";
        else if (lu.octets != 0 && code >= 0)
            sortie += static_cast<char>(code);
        controle.remove_prefix(lu.octets == 0 ? 1 : lu.octets);
    }
    return sortie;
}

std::size_t position_du_controle(std::string_view feuille, std::size_t octet) {
    const std::size_t fin = std::min(octet, feuille.size());
    std::size_t doubles = 0;   // line ends of two bytes, whole, in front of it
    for (std::size_t i = feuille.find('\r'); i < fin && i + 1 < fin; i = feuille.find('\r', i + 1))
        if (feuille[i + 1] == '\n') ++doubles;
    return fin - doubles;
}

std::size_t position_de_la_feuille(std::string_view feuille, std::size_t caractere) {
    std::size_t i = 0;
    while (i < feuille.size() && caractere > 0) {
        const std::size_t simples = std::min(std::min(feuille.find('\r', i), feuille.size()) - i, caractere);
        caractere -= simples;
        i += simples;
        if (caractere == 0 || i == feuille.size()) break;
        i += largeur(feuille, i);
        --caractere;
    }
    return i;
}
