// Escaped text, and numbers in MathML. Changes no state.
#include "exchange/html_text.hpp"

#include <algorithm>
#include <cstddef>

#include "base/codepage.hpp"

namespace {

// How many characters from `debut` on are digits, with at most one point.
std::size_t longueur_decimale(std::string_view texte, std::size_t debut) {
    bool point = false, chiffre = false;
    std::size_t i = debut;
    for (; i < texte.size() && (est_chiffre(texte[i]) || (texte[i] == '.' && !point)); ++i) {
        point = point || texte[i] == '.';
        chiffre = chiffre || est_chiffre(texte[i]);
    }
    return chiffre ? i - debut : 0;
}

std::string avec_virgule(std::string_view decimal) {
    std::string texte(decimal);
    if (texte.ends_with('.')) texte.pop_back();
    if (texte.starts_with('.')) texte.insert(0, "0");
    std::replace(texte.begin(), texte.end(), '.', ',');
    return texte;
}

// An exponent "E3", "E+20", "E-05", "E00" at the end of a number: its figures, or "" when it is none.
std::string exposant_de(std::string_view fin) {
    if (fin.size() < 2 || fin[0] != 'E') return "";
    fin.remove_prefix(1);
    const bool negatif = fin[0] == '-';
    if (fin[0] == '-' || fin[0] == '+') fin.remove_prefix(1);
    if (fin.ends_with('.')) fin.remove_suffix(1);   // "1E+20."
    if (fin.empty() || !std::all_of(fin.begin(), fin.end(), est_chiffre)) return "";
    while (fin.size() > 1 && fin[0] == '0') fin.remove_prefix(1);
    return (negatif ? "<mo form=\"prefix\">\xE2\x88\x92</mo><mn>" : "<mn>") + std::string(fin) + "</mn>";
}

}  // namespace

std::string html(std::string_view texte) {
    std::string sortie;
    for (const char c : texte) {
        const auto code = static_cast<unsigned char>(c);
        const bool controle = (code < 32 && code != '\t' && code != '\n' && code != '\r') || code == 0x7F ||
                              code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
        if (controle)
            sortie += "\xEF\xBF\xBD";   // HTML has no control characters
        else if (c == '&')
            sortie += "&amp;";
        else if (c == '<')
            sortie += "&lt;";
        else if (c == '>')
            sortie += "&gt;";
        else if (c == '"')
            sortie += "&quot;";
        else
            sortie += vers_utf8(std::string_view(&c, 1));
    }
    return sortie;
}

std::string mathml_nombre(std::string_view texte) {
    const bool negatif = texte.starts_with('-');
    const std::string_view reste = texte.substr(negatif ? 1 : 0);
    const std::size_t n = longueur_decimale(reste, 0);
    if (n == 0) return "<mtext>" + html(texte) + "</mtext>";
    const std::string signe = negatif ? "<mo form=\"prefix\">\xE2\x88\x92</mo>" : "";
    const std::string mantisse = "<mn>" + avec_virgule(reste.substr(0, n)) + "</mn>";
    if (n == reste.size()) return signe + mantisse;
    const std::string exposant = exposant_de(reste.substr(n));
    if (exposant.empty()) return "<mtext>" + html(texte) + "</mtext>";
    return signe + mantisse + "<mo>\xC3\x97</mo><msup><mn>10</mn><mrow>" + exposant + "</mrow></msup>";
}
