// Number texts and conversions, built on std::from_chars and std::to_chars. Changes no state.
#include "base/number.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

#include "base/codepage.hpp"

namespace {

// The parts of a numeric beginning, as positions in its text.
struct Prefixe {
    std::size_t debut = 0;        // first digit or point
    std::size_t fin = 0;          // after the last character used; equal to debut when nothing reads
    std::size_t exposant = 0;     // position of "E" or "D", or 0 when there is none
    bool negatif = false;
};

// Finds the numeric beginning of `texte`.
Prefixe decoupe(std::string_view texte) {
    Prefixe p;
    std::size_t i = 0;
    while (i < texte.size() && texte[i] == ' ') ++i;
    if (i < texte.size() && (texte[i] == '+' || texte[i] == '-')) p.negatif = texte[i++] == '-';
    p.debut = p.fin = i;
    bool point = false, chiffre = false;
    for (; i < texte.size() && (est_chiffre(texte[i]) || (texte[i] == '.' && !point)); ++i) {
        point |= texte[i] == '.';
        chiffre |= texte[i] != '.';
    }
    if (!chiffre) return p;
    p.fin = i;
    if (i >= texte.size() || (texte[i] != 'E' && texte[i] != 'D')) return p;
    std::size_t j = i + 1;
    if (j < texte.size() && (texte[j] == '+' || texte[j] == '-')) ++j;
    if (j >= texte.size() || !est_chiffre(texte[j])) return p;
    p.exposant = i;
    while (j < texte.size() && est_chiffre(texte[j])) ++j;
    p.fin = j;
    return p;
}

// True when a value that did not fit is too large rather than too small: the place of its first
// significant digit, moved by the exponent, decides.
bool trop_grand(std::string_view mantisse, std::string_view exposant) {
    long long place = 0;
    const std::size_t point = std::min(mantisse.find('.'), mantisse.size());
    const std::size_t premier = mantisse.find_first_of("123456789");
    if (premier == std::string_view::npos) return false;
    place = static_cast<long long>(point) - static_cast<long long>(premier);
    long long e = 0;
    const bool negatif = !exposant.empty() && exposant[0] == '-';
    for (const char c : exposant)
        if (est_chiffre(c)) e = std::min(e * 10 + (c - '0'), 1'000'000'000'000LL);
    return place + (negatif ? -e : e) > 0;
}

// Value of a mantissa and an exponent text without its letter. Raises failure 6 when too large.
double valeur_decimale(std::string_view mantisse, std::string_view exposant) {
    std::array<char, 64> court;
    std::string long_texte;
    std::string_view tout = mantisse;
    if (!exposant.empty()) {
        if (exposant[0] == '+') exposant.remove_prefix(1);
        const std::size_t n = mantisse.size() + 1 + exposant.size();
        char* cible = court.data();
        if (n > court.size()) {
            long_texte.resize(n);
            cible = long_texte.data();
        }
        std::memcpy(cible, mantisse.data(), mantisse.size());
        cible[mantisse.size()] = 'E';
        std::memcpy(cible + mantisse.size() + 1, exposant.data(), exposant.size());
        tout = {cible, n};
    }
    double valeur = 0;
    const auto lu = std::from_chars(tout.data(), tout.data() + tout.size(), valeur);
    if (lu.ec == std::errc::result_out_of_range) {
        if (trop_grand(mantisse, exposant)) echoue(kDepassement);
        return 0;
    }
    return valeur;
}

// The powers of ten that are exact floats and that fifteen digits may be divided by.
constexpr std::array<double, 16> kDizaines = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Value of a text of at most fifteen digits, with at most one point and nothing else: digits and power of ten are
// exact, so their quotient is the nearest float. Anything else, an empty text too, is refused.
bool lit_court(std::string_view texte, double& valeur) {
    if (texte.size() > 15) return false;
    std::int64_t n = 0;
    std::size_t chiffres_lus = 0, decimales = 0;
    bool point = false;
    for (const char c : texte) {
        if (c == '.' && !point) {
            point = true;
            continue;
        }
        if (!est_chiffre(c)) return false;
        n = n * 10 + (c - '0');
        ++chiffres_lus;
        decimales += point;
    }
    valeur = static_cast<double>(n) / kDizaines[decimales];
    return chiffres_lus > 0;
}

// The fifteen significant digits of a finite value that is not 0.
struct QuinzeChiffres {
    std::array<char, 15> chiffre;
    int exposant;                 // decimal exponent of the first digit
};

// Cuts |x| into its fifteen digits, correctly rounded.
QuinzeChiffres quinze_chiffres(double x) {
    std::array<char, 32> texte;
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), std::fabs(x),
                                     std::chars_format::scientific, 14);
    QuinzeChiffres q{};
    q.chiffre[0] = texte[0];
    std::memcpy(q.chiffre.data() + 1, texte.data() + 2, 14);
    const char* e = texte.data() + 17;
    if (*e == '+') ++e;
    std::from_chars(e, ecrit.ptr, q.exposant);
    return q;
}

// Rounds half up at `place` digits from the first one (negative: all is cut off). A carry out of the
// first digit moves the exponent.
void arrondit_chiffres(QuinzeChiffres& q, int place) {
    if (place >= 15) return;
    const bool monte = place >= 0 && q.chiffre[static_cast<std::size_t>(place)] >= '5';
    std::fill(q.chiffre.begin() + std::max(place, 0), q.chiffre.end(), '0');
    if (!monte) return;
    int i = place - 1;
    while (i >= 0 && q.chiffre[static_cast<std::size_t>(i)] == '9')
        q.chiffre[static_cast<std::size_t>(i--)] = '0';
    if (i >= 0) {
        ++q.chiffre[static_cast<std::size_t>(i)];
    } else {
        std::copy_backward(q.chiffre.begin(), q.chiffre.end() - 1, q.chiffre.end());
        q.chiffre[0] = '1';
        ++q.exposant;
    }
}

// Whether |x| is an integer below 10^15: it has at most fifteen digits, nothing is to be rounded.
bool est_entier_court(double absolu) {
    return absolu < 1e15 && static_cast<double>(static_cast<std::int64_t>(absolu)) == absolu;
}

constexpr auto kPaires = [] {   // "00" to "99"
    std::array<char, 200> t{};
    for (std::size_t n = 0; n < 100; ++n) {
        t[2 * n] = static_cast<char>('0' + n / 10);
        t[2 * n + 1] = static_cast<char>('0' + n % 10);
    }
    return t;
}();

// Writes the figures of `n` in front of `fin`; answers where they begin.
char* ecrit_chiffres(char* fin, std::uint64_t n) {
    for (; n >= 100; n /= 100) std::memcpy(fin -= 2, kPaires.data() + 2 * (n % 100), 2);
    if (n < 10) {
        *--fin = static_cast<char>('0' + n);
        return fin;
    }
    std::memcpy(fin -= 2, kPaires.data() + 2 * n, 2);
    return fin;
}

// Adds `n` units of the last of `decimales` decimals, with its sign.
void ajoute_unites(std::string& sortie, bool negatif, std::uint64_t n, int decimales) {
    std::array<char, 40> texte;
    char* const fin = texte.data() + texte.size();
    char* debut = fin;
    if (decimales > 0) {
        for (; decimales > 0; --decimales, n /= 10) *--debut = static_cast<char>('0' + n % 10);
        *--debut = '.';
    }
    debut = ecrit_chiffres(debut, n);
    if (negatif) *--debut = '-';
    sortie.append(debut, static_cast<std::size_t>(fin - debut));
}

constexpr int kDecimalesRapides = 6;
constexpr std::array<double, kDecimalesRapides + 1> kPuissances10 = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};

// |x| in units of its last decimal when one multiplication rounds as the fifteen digits do: below 10^12 their cut and
// the product's error together move the value by far less than 0.01 of the last decimal, so only a value about half-way
// between two needs the digits. False when it does.
bool compte_unites(double absolu, int decimales, std::uint64_t& n) {
    if (decimales > kDecimalesRapides) return false;
    const double unites = absolu * kPuissances10[static_cast<std::size_t>(decimales)];
    if (!(unites < 1e12)) return false;
    const auto entier = static_cast<std::int64_t>(unites);
    const double reste = unites - static_cast<double>(entier);
    if (std::fabs(reste - 0.5) <= 0.01) return false;
    n = static_cast<std::uint64_t>(entier) + (reste > 0.5 ? 1 : 0);
    return true;
}

// Adds |x| out of its fifteen digits.
void ajoute_quinze_chiffres(std::string& sortie, double x, int decimales) {
    QuinzeChiffres q = quinze_chiffres(x);
    arrondit_chiffres(q, q.exposant + 1 + decimales);
    const auto chiffre = [&](int rang) {   // digit of rank 10^-rang after the first
        return rang < 0 || rang > 14 ? '0' : q.chiffre[static_cast<std::size_t>(rang)];
    };
    for (int i = 0; i <= std::max(q.exposant, 0); ++i)
        sortie += q.exposant < 0 ? '0' : chiffre(i);
    if (decimales > 0) sortie += '.';
    for (int i = 1; i <= decimales; ++i) sortie += chiffre(q.exposant + i);
}

// Drops the zeros that end the decimals from `debut` on, and the point when nothing stays after it.
void retire_zeros(std::string& texte, std::size_t debut) {
    if (texte.find('.', debut) == std::string::npos) return;
    while (texte.back() == '0') texte.pop_back();
    if (texte.back() == '.') texte.pop_back();
}

}  // namespace

double prefixe_numerique(std::string_view texte) {
    double valeur;
    if (lit_court(texte, valeur)) return valeur;
    const Prefixe p = decoupe(texte);
    if (p.fin == p.debut) return 0;
    const std::size_t fin_mantisse = p.exposant != 0 ? p.exposant : p.fin;
    const std::string_view mantisse = texte.substr(p.debut, fin_mantisse - p.debut);
    valeur = valeur_decimale(mantisse, p.exposant != 0 ? texte.substr(p.exposant + 1, p.fin - p.exposant - 1)
                                                       : std::string_view());
    return p.negatif ? -valeur : valeur;
}

std::size_t longueur_prefixe(std::string_view texte) {
    const Prefixe p = decoupe(texte);
    return p.fin == p.debut ? 0 : p.fin;
}

std::string texte_general(double x) {
    if (x == 0) return "0";
    if (std::isnan(x)) return "NAN";   // never with a sign
    std::array<char, 40> texte;
    const auto ecrit = std::to_chars(texte.data(), texte.data() + texte.size(), x,
                                     std::chars_format::general, 15);
    std::string sortie(texte.data(), ecrit.ptr);
    for (char& c : sortie)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return sortie;
}

void ajoute_texte_fixe(std::string& sortie, double x, int decimales) {
    decimales = std::max(decimales, 0);
    const double absolu = std::fabs(x);
    std::uint64_t n = 0;
    if (compte_unites(absolu, decimales, n)) {
        ajoute_unites(sortie, x < 0, n, decimales);
    } else if (!std::isfinite(x)) {
        sortie += texte_general(x);
    } else if (est_entier_court(absolu)) {
        ajoute_unites(sortie, x < 0, static_cast<std::uint64_t>(absolu), 0);
        if (decimales > 0) (sortie += '.').append(static_cast<std::size_t>(decimales), '0');
    } else {
        if (x < 0) sortie += '-';
        ajoute_quinze_chiffres(sortie, x, decimales);
    }
}

void ajoute_texte_court(std::string& sortie, double x, int decimales) {
    decimales = std::max(decimales, 0);
    const double absolu = std::fabs(x);
    std::uint64_t n = 0;
    if (est_entier_court(absolu)) {
        ajoute_unites(sortie, x < 0, static_cast<std::uint64_t>(absolu), 0);
    } else if (compte_unites(absolu, decimales, n)) {
        for (; decimales > 0 && n % 10 == 0; --decimales) n /= 10;
        ajoute_unites(sortie, x < 0, n, decimales);
    } else {
        const std::size_t debut = sortie.size();
        ajoute_texte_fixe(sortie, x, decimales);
        retire_zeros(sortie, debut);
    }
}

std::string forme_blanc(double x) {
    std::string texte = texte_general(x);
    return x < 0 ? texte : " " + texte;
}

std::string chiffres(long long n) { return std::to_string(n); }

std::int16_t vers_16_arrondi(double x) {
    const double r = std::nearbyint(x);
    if (!(r >= -32768 && r <= 32767)) echoue(kDepassement);
    return static_cast<std::int16_t>(r);
}

std::string combien(std::size_t n, std::string_view un, std::string_view plusieurs) {
    return chiffres(static_cast<long long>(n)).append(" ").append(n == 1 ? un : plusieurs);
}

std::int16_t vers_16_tronque(double x) {
    const double r = std::trunc(x);
    if (!(r >= -32768 && r <= 32767)) echoue(kDepassement);
    return static_cast<std::int16_t>(r);
}

std::int32_t vers_32_tronque(double x) {
    const double r = std::trunc(x);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) echoue(kDepassement);
    return static_cast<std::int32_t>(r);
}

void refuse_resultat(double resultat, bool operande_infini, bool operande_indefini) {
    if (std::isnan(resultat) ? !operande_indefini : !operande_infini) echoue(kDepassement);
}
