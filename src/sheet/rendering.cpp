// From a value to its text, in the number mode of the moment. Changes resultat_ligne and, for a
// matrix in column form, resultat_bloc.
#include "sheet/rendering.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "functions/functions.hpp"
#include "functions/progressions.hpp"
#include "settings/settings.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_text.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

namespace {

constexpr Procedure kAfficheValeur{" sur Affiche_valeur"_fr, false};
constexpr Procedure kAfficheValeurNombre{" sur Affiche_valeur_nombre"_fr, false};
constexpr Procedure kAffichePi{" sur AffichePi"_fr, false};

// The positive multiples of Pi that have a notation, in the order in which they are compared; each
// value is computed from pi_valeur as its text says. The negative ones mirror them.
struct MultiplePi {
    double facteur, diviseur;
    std::string_view texte;
};
constexpr std::array<MultiplePi, 6> kMultiplesPi = {{{1, 4, "Pi/4"},
                                                     {1, 2, "Pi/2"},
                                                     {3, 4, "3Pi/4"},
                                                     {1, 1, "Pi"},
                                                     {3, 2, "3Pi/2"},
                                                     {2, 1, "2Pi"}}};

// Text of a listed multiple of Pi without its sign, or an empty text. No tolerance: a value that
// differs in its last bit is no multiple.
std::string_view multiple_pi(double absolu) {
    if (absolu < moteur.pi_valeur / 4 || absolu > 2 * moteur.pi_valeur) return {};
    for (const MultiplePi& m : kMultiplesPi)
        if (absolu == m.facteur * moteur.pi_valeur / m.diviseur) return m.texte;
    return {};
}

// True when the line's own text, whatever its case, holds the mark.
bool formule_contient(std::int16_t numero, const Marque& marque) {
    const std::string& formule = feuille.formule_ligne(numero);
    if ((lettres_de(formule) & marque.lettres) != marque.lettres) return false;
    return capitales(formule).find(marque.mot) != std::string::npos;
}

// Hexadecimal form of the integer part, negative values in 32-bit two's complement. Raises failure 6
// outside 32 bits.
std::string texte_hexa(double x) {
    const auto n = static_cast<std::uint32_t>(vers_32_tronque(x));
    std::array<char, 8> texte;
    const auto fin = std::to_chars(texte.data(), texte.data() + texte.size(), n, 16).ptr;
    return capitales({texte.data(), static_cast<std::size_t>(fin - texte.data())});
}

// Text of the line's value in the present mode.
std::string texte_valeur(std::int16_t numero) {
    const double x = feuille.valeur_ligne(numero);
    if (modes.mode_nombre == 2) return texte_hexa(x);
    if (modes.mode_affichage == 2) return FormatNombre(x);
    if (modes.mode_affichage == 3) return FormatPuissance(x);
    return c_intx(x);
}

// The layout of matrices: any value but 0 in the settings is a column here.
bool matrices_en_colonne() { return reglages.table_ini(kLigneAffichage).champ1 != 0; }

// The result of a matrix line: in column form a block below the line, in line form all on it.
void affiche_matrice(std::int16_t numero, char lettre) {
    const Dimension d = DimensionMatrice(lettre);
    std::string bornes;
    Tente(kAfficheValeur, [&] { bornes = chiffres(d.lignes) + "," + chiffres(d.colonnes); });
    if (matrices_en_colonne()) {
        ChaineMatriceColonne(lettre);
        Tente(kAfficheValeur, [&] { feuille.resultat_ligne(numero) = "== " + bornes; });
    } else {
        const std::string elements = ChaineMatriceLigne(lettre);
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne(numero) = " =" + elements + " =" + bornes;
        });
        feuille.resultat_bloc.clear();
    }
}

// True when the text last given to the engine is that of a matrix line.
bool est_ligne_matrice(const std::string& formule) {
    return formule.size() > 3 && formule[0] == 'M' &&
           TestCarMatrice(std::string_view(formule).substr(1, 1));
}

// Drops the trailing zeros of decimals, and the point when nothing stays behind it.
void retire_zeros(std::string& texte) {
    if (texte.find('.') == std::string::npos) return;
    while (texte.size() > 1 && texte.back() == '0') texte.pop_back();
    if (texte.back() == '.') texte.pop_back();
}

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

void affiche_valeur(std::int16_t numero) noexcept {
    const std::string& formule = moteur.p_formule;
    if (TexteMarque(formule).contient(kMotTriStatX)) {
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne(numero) = " = " + chiffres(borne_table_x());
        });
        return;
    }
    if (est_ligne_matrice(formule)) {
        affiche_matrice(numero, formule[1]);
        return;
    }
    bool euro = false;
    Tente(kAfficheValeur, [&] { euro = formule_contient(numero, kMotEuro); });
    if (euro)
        Tente(kAfficheValeur, [&] {
            feuille.resultat_ligne(numero) = " = " + Forme_montant(feuille.valeur_ligne(numero));
        });
    else
        Affiche_valeur_nombre(numero);
}

void Affiche_valeur_nombre(std::int16_t numero) noexcept {
    bool pi = false;
    if (modes.mode_nombre == 1) AffichePi(numero, pi);
    if (pi) return;
    std::string texte;
    Tente(kAfficheValeurNombre, [&] { texte = texte_valeur(numero); });
    Tente(kAfficheValeurNombre, [&] {
        (feuille.resultat_ligne(numero) = " = ") += texte;
    });
}

void AffichePi(std::int16_t numero, bool& trouve) noexcept {
    trouve = false;
    Tente(kAffichePi, [&] {
        const double x = feuille.valeur_ligne(numero);
        const std::string_view texte = multiple_pi(std::fabs(x));
        // Who wrote Pi into the line wants digits.
        if (texte.empty() || formule_contient(numero, kMotPi)) return;
        (feuille.resultat_ligne(numero) = x < 0 ? " = -" : " = ") += texte;
        trouve = true;
    });
}

std::string FormatNombre(double x) {
    std::string texte;
    const bool entier = std::fabs(x) < 1e15 && x == std::trunc(x);
    ajoute_texte_fixe(texte, x, entier ? 0 : modes.nombre_decimal);
    if (!entier) retire_zeros(texte);
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
