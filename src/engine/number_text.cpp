// Texts of numbers in the current number of decimals, and values of hexadecimal digits. Changes nothing.
#include "engine/number_text.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "state/modes.hpp"

namespace {

// Digits as a mantissa of `d` decimals: cut, or filled with zeros.
void ajuste_chiffres(std::string& s, std::size_t d) {
    if (s.size() > d + 1)
        s.resize(d + 1);
    else if (d > 0)
        s.append(d + 1 - s.size(), '0');
}

// A value below 1 in fixed form, `s` being "0.000ddd".
std::string puissance_negative(const std::string& s, const std::string& signe, std::size_t d) {
    const std::size_t premier = s.find_first_not_of('0', 2);
    if (premier == std::string::npos) return "0";
    const std::string k = chiffres(static_cast<long long>(premier - 1));
    std::string decimales = s.substr(premier);
    if (d == 0 && decimales.size() <= 1) return signe + decimales + "E-" + k;
    ajuste_chiffres(decimales, d);
    return signe + decimales[0] + "." + decimales.substr(1) + "E-" + k;
}

// A value whose general text has an exponent at `e` (from 0): the exponent stays, the mantissa is cut.
// Kept: see the oddities, digits-cut.
std::string puissance_exposant(const std::string& s, std::size_t e, const std::string& signe,
                               std::size_t d) {
    if (d == 0) return signe + s[0] + s.substr(e);
    if (e + 1 <= d + 2) return signe + s;
    return signe + s.substr(0, d + 2) + s.substr(e);
}

// A value from 1 to 9.99 in fixed form; it may end in its point.
std::string puissance_unite(const std::string& s, const std::string& signe, std::size_t d) {
    if (d == 0) return signe + s[0] + "E00";
    return signe + s.substr(0, d + 2) + "E00";
}

// A value whose integer part has several digits, the point standing at `point` (from 0).
std::string puissance_positive(const std::string& s, std::size_t point, const std::string& signe,
                               std::size_t d) {
    const std::string exposant = chiffres(static_cast<long long>(point) - 1);
    std::string tous = s.substr(0, point) + s.substr(point + 1);
    ajuste_chiffres(tous, d);
    if (d == 0) return signe + tous[0] + "E" + exposant;
    return signe + tous[0] + "." + tous.substr(1) + "E" + exposant;
}

}  // namespace

std::string FormatNombre(double x) {
    std::string texte;
    ajoute_texte_court(texte, x, modes.nombre_decimal);
    return texte;
}

std::string FormatPuissance(double x) {
    std::string s = texte_general(x);
    if (s == "0" || !std::isfinite(x)) return s;
    const auto d = static_cast<std::size_t>(modes.nombre_decimal < 0 ? 0 : modes.nombre_decimal);
    std::string signe;
    if (s.front() == '-') {
        signe = "-";
        s.erase(0, 1);
    }
    // The point comes before the exponent is looked for, so 1E+20 keeps a final point.
    if (s.find('.') == std::string::npos) s += '.';
    if (s.starts_with("0.")) return puissance_negative(s, signe, d);
    const std::size_t e = s.find('E');
    if (e != std::string::npos) return puissance_exposant(s, e, signe, d);
    const std::size_t point = s.find('.');
    if (point == 1) return puissance_unite(s, signe, d);
    return puissance_positive(s, point, signe, d);
}

std::string texte_hexa(double x) {
    const auto n = static_cast<std::uint32_t>(vers_32_tronque(x));
    std::array<char, 8> texte;
    const auto fin = std::to_chars(texte.data(), texte.data() + texte.size(), n, 16).ptr;
    return capitales({texte.data(), static_cast<std::size_t>(fin - texte.data())});
}

int ConvertitHexa(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    return c >= 'A' && c <= 'F' ? c - 55 : 0;
}

double valhexa(std::string_view chiffres_hexa) {
    const std::size_t premier = chiffres_hexa.find_first_not_of('0');
    if (premier == std::string_view::npos) return 0;
    chiffres_hexa.remove_prefix(premier);
    double valeur = ConvertitHexa(chiffres_hexa.back());
    double poids = 1;
    for (std::size_t i = chiffres_hexa.size() - 1; i-- > 0;) {
        range(poids, poids * 16, poids);
        range(valeur, valeur + ConvertitHexa(chiffres_hexa[i]) * poids, valeur, poids);
    }
    return valeur;
}
