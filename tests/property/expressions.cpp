// Random formulas: each procedure writes its part of a formula and computes its value as the
// sheet's language means it, in 64-bit arithmetic from left to right.
#include "property/expressions.hpp"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <utility>

#include "base/codepage.hpp"
#include "base/maths.hpp"

namespace {

bool tient_en_32_bits(const Formule& f) { return f.connue && std::fabs(f.valeur) < 2147483647.0; }
std::int32_t tronque(const Formule& f) { return static_cast<std::int32_t>(f.valeur); }

// The operands' knowledge goes to the result.
void herite(Formule& cible, const Formule& autre) {
    cible.connue = cible.connue && autre.connue;
    cible.rang = std::max(cible.rang, autre.rang);
}

Formule inconnue(std::string texte) { return {std::move(texte), false, 0, 1}; }

std::string figures(int n) { return std::to_string(n); }

double par_logarithme(double base, int exposant) {
    if (base == 0) return 0;
    const double p = maths::exp(maths::log(std::fabs(base)) * exposant);
    return base < 0 && exposant % 2 != 0 ? -p : p;
}

}  // namespace

std::string change_casse(Tirage& t, std::string texte) {
    const int maniere = t.entre(0, 5);
    if (maniere > 1) return texte;
    for (char& c : texte)
        if (c >= 'A' && c <= 'Z' && (maniere == 0 || t.une_fois_sur(2)))
            c = static_cast<char>(c + 32);
    return texte;
}

std::string Expressions::operateur(const char* signe) {
    return t.une_fois_sur(6) ? " " + std::string(signe) + " " : signe;
}

Formule Expressions::entier(int bas, int haut) {
    const int n = t.entre(bas, haut);
    return {figures(n), true, static_cast<double>(n), 0};
}

Formule Expressions::litteral() {
    const int n = t.entre(0, 400);
    switch (t.entre(0, 7)) {
        case 0: {
            const int c = t.entre(0, 99);
            const std::string texte = figures(n) + (c < 10 ? ".0" : ".") + figures(c);
            return {texte, true, (n * 100 + c) / 100.0, 0};
        }
        case 1: {
            std::array<char, 16> texte;
            std::snprintf(texte.data(), texte.size(), "$%X", static_cast<unsigned>(n));
            return {texte.data(), true, static_cast<double>(n), 0};
        }
        case 2: return {"#" + figures(n), true, static_cast<double>(n), 0};
        case 3: return {figures(n) + ".5", true, n + 0.5, 0};
        default: return {figures(n), true, static_cast<double>(n), 0};
    }
}

Formule Expressions::variable() {
    const int lettre = t.entre(1, 26);
    const Variable& x = v[static_cast<std::size_t>(lettre)];
    if (!x.definie || x.rang > 2 || (x.connue && std::fabs(x.valeur) > 1e6)) return litteral();
    return {std::string(1, static_cast<char>('A' + lettre - 1)), x.connue, x.valeur, x.rang};
}

Formule Expressions::parenthese(int profondeur) {
    Formule f = somme(profondeur - 1);
    f.texte = "(" + f.texte + ")";
    return f;
}

// Functions whose value is known to the bit.
Formule Expressions::fonction_exacte() {
    const int n = t.entre(1, 12), p = t.entre(0, n);
    const std::string deux = "(" + figures(n) + "," + figures(p) + ")";
    double a = 1;
    for (int i = n - p + 1; i <= n; ++i) a *= i;
    double factorielle = 1;
    for (int i = 2; i <= n; ++i) factorielle *= i;
    switch (t.entre(0, 5)) {
        case 0: return {"PI", true, std::numbers::pi, 0};
        case 1: return {"ANP" + deux, true, a, 0};
        case 2: return {"FACT(" + figures(n) + ")", true, factorielle, 0};
        case 3:
            return {"SERIEA(" + figures(p) + "," + figures(n) + ",3)", true,
                    static_cast<double>(p) * n + (n - 1.0) * n * 3 / 2, 0};
        case 4:
            return {"SUITEA(" + figures(p) + "," + figures(n) + ",-2)", true, (n - 1.0) * -2 + p,
                    0};
        default: return {"CNP" + deux, false, 0, 1};
    }
}

// Functions whose value depends on a mode, or on the last bit of a library function.
Formule Expressions::fonction_bornee() {
    const std::string x = figures(t.entre(1, 60));
    constexpr const char* noms[] = {"SIN", "COS", "ATAN", "INT", "FRAC", "LN", "LOG", "SQR3", "TH"};
    switch (t.entre(0, 6)) {
        case 0: return inconnue("ACOS(0." + figures(t.entre(0, 9)) + ")");
        case 1: return inconnue("ASIN(-0." + figures(t.entre(0, 9)) + ")");
        case 2: return inconnue("SERIEG(2," + figures(t.entre(1, 9)) + ",1.5)");
        case 3: return inconnue("SUITEG(3," + figures(t.entre(1, 9)) + ",0.5)");
        case 4: return inconnue("0*ALEA");
        default: return inconnue(std::string(t.un_de(noms)) + "(" + x + ")");
    }
}

Formule Expressions::fonction_d_un_argument() {
    dans_argument = true;
    Formule x = somme(0);
    dans_argument = false;
    const int choix = t.entre(0, 3);
    if (!x.connue || choix == 0)
        return {"ABS(" + x.texte + ")", x.connue, std::fabs(x.valeur), x.rang};
    if (choix == 1 && std::fabs(x.valeur) < 1e6)
        return {"SQR(" + x.texte + ")", true, x.valeur * x.valeur, 0};
    if (choix == 2 && x.valeur >= 0) return {"SQRT(" + x.texte + ")", true, std::sqrt(x.valeur), 0};
    if (choix == 3 && std::fabs(x.valeur) < 20)
        return {"EXP(" + x.texte + ")", true, maths::exp(x.valeur), 0};
    return {"ABS(" + x.texte + ")", true, std::fabs(x.valeur), 0};
}

Formule Expressions::fonction(int profondeur) {
    if (dans_argument || profondeur < 1) return litteral();
    switch (t.entre(0, 2)) {
        case 0: return fonction_d_un_argument();
        case 1: return fonction_exacte();
        default: return fonction_bornee();
    }
}

Formule Expressions::facteur(int profondeur) {
    switch (t.entre(0, 9)) {
        case 0:
        case 1: return profondeur > 0 ? parenthese(profondeur) : litteral();
        case 2: return fonction(profondeur);
        case 3:
        case 4:
        case 5: return variable();
        default: return litteral();
    }
}

Formule Expressions::non(int profondeur) {
    Formule f = facteur(profondeur);
    if (!t.une_fois_sur(25) || !tient_en_32_bits(f)) return f;
    return {"NOT " + f.texte, true, static_cast<double>(~tronque(f)), 0};
}

Formule Expressions::puissance(int profondeur) {
    Formule base = non(profondeur);
    if (!t.une_fois_sur(6) || !base.connue || std::fabs(base.valeur) > 1e4) return base;
    const int exposant = t.entre(-1, 3);
    if (exposant < 0 && std::fabs(base.valeur) < 1e-3) return base;
    const bool carre = exposant == 2 && t.une_fois_sur(2);
    base.valeur = par_logarithme(base.valeur, exposant);
    base.texte +=
        carre ? std::string("²"_fr) : operateur("^") + (exposant < 0 ? "(-1)" : figures(exposant));
    return base;
}

// One more factor: a product, a quotient by a number that is known not to be 0, or AND.
void Expressions::ajoute_facteur(Formule& produit, int profondeur) {
    const Formule f = puissance(profondeur);
    const int choix = t.entre(0, 7);
    if (choix < 2 && f.connue && std::fabs(f.valeur) > 1e-3) {
        produit.texte += operateur("/") + f.texte;
        produit.valeur /= f.valeur;
    } else if (choix == 2 && tient_en_32_bits(produit) && tient_en_32_bits(f)) {
        produit.texte += " AND " + f.texte;
        produit.valeur = tronque(produit) & tronque(f);
    } else {
        // A number in front of a letter needs no sign, unless it may be read as hexadecimal.
        const bool chiffre = produit.texte.back() >= '0' && produit.texte.back() <= '9';
        const bool lettre = f.texte.front() >= 'A' && f.texte.front() <= 'Z';
        const bool implicite = chiffre && lettre && produit.texte.find('$') == std::string::npos &&
                               !f.texte.starts_with("NOT") && t.une_fois_sur(2);
        produit.texte += (implicite ? "" : operateur("*")) + f.texte;
        produit.valeur *= f.valeur;
    }
    herite(produit, f);
}

Formule Expressions::terme(int profondeur) {
    Formule produit = puissance(profondeur);
    for (int i = t.entre(-1, 1); i > 0; --i) ajoute_facteur(produit, profondeur);
    return produit;
}

// One more term: a sum, a difference, a percentage of the sum so far, OR or XOR.
void Expressions::ajoute_terme(Formule& somme, int profondeur) {
    const Formule f = terme(profondeur);
    const int choix = t.entre(0, 11);
    const bool plus = t.une_fois_sur(2);
    if (choix == 0 && tient_en_32_bits(somme) && tient_en_32_bits(f)) {
        somme.texte += (plus ? " OR " : " XOR ") + f.texte;
        somme.valeur = plus ? tronque(somme) | tronque(f) : tronque(somme) ^ tronque(f);
    } else if (choix == 1) {
        somme.texte += operateur(plus ? "+" : "-") + f.texte + "%";
        somme.valeur *= plus ? f.valeur / 100 + 1 : 1 - f.valeur / 100;
    } else {
        somme.texte += operateur(plus ? "+" : "-") + f.texte;
        somme.valeur += plus ? f.valeur : -f.valeur;
    }
    herite(somme, f);
}

Formule Expressions::somme(int profondeur) {
    Formule f = terme(profondeur);
    if (t.une_fois_sur(8)) {
        f.texte = "-" + f.texte;
        f.valeur = -f.valeur;
    } else if (t.une_fois_sur(16)) {
        f.texte = "+" + f.texte;
    }
    for (int i = t.entre(-1, 2); i > 0; --i) ajoute_terme(f, profondeur);
    return f;
}
