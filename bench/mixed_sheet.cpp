// Makes the mixed sheet from a table of line models. No formula can fail or run away: what is
// stored in a variable stays between 0 and 1,000.
#include "mixed_sheet.hpp"

#include <array>
#include <cctype>
#include <random>
#include <string_view>

#include "base/codepage.hpp"

namespace {

// A formula in three languages. A to C stand for letters of variables, a to c for numbers, n for a
// small integer, d for an angle in degrees; the names of functions stand between braces.
struct Modele {
    int poids;         // how often it comes
    bool affectation;  // it stores in variable A
    std::string_view feuille;
    std::string_view muparser;
    std::string_view bc;
};

// Angles are degrees in the sheet. The constant rad of muParser and the variable rad of bc hold one
// degree, so that the rivals don't divide by 180 each time.
constexpr std::array kModeles = {
    Modele{12, true, "A=a", "A=a", "A=a"},
    Modele{8, true, "A=B/2+a", "A=B/2+a", "A=B/2+a"},
    Modele{6, true, "A=(B+C)/2", "A=(B+C)/2", "A=(B+C)/2"},
    Modele{4, true, "A=a*1.2", "A=a*1.2", "A=a*1.2"},
    Modele{3, true, "A=a+b+c", "A=a+b+c", "A=a+b+c"},
    Modele{3, true, "A={SQRT}(B^2+C^2)/2", "A={sqrt}(B^2+C^2)/2", "A={sqrt}(B^2+C^2)/2"},
    Modele{2, true, "A={ABS}(B-C)/2+a", "A={abs}(B-C)/2+a", "A={abs}(B-C)/2+a"},
    Modele{2, true, "A=100*{SIN}(d)+100", "A=100*{sin}(d*{rad})+100", "A=100*{s}(d*{rad})+100"},
    Modele{8, false, "A+B", "A+B", "A+B"},
    Modele{8, false, "a*b+c", "a*b+c", "a*b+c"},
    Modele{6, false, "(A+B)*a-b", "(A+B)*a-b", "(A+B)*a-b"},
    Modele{6, false, "A*B/a", "A*B/a", "A*B/a"},
    Modele{4, false, "nA+b", "n*A+b", "n*A+b"},
    Modele{3, false, "a+b+c+A+B+C", "a+b+c+A+B+C", "a+b+c+A+B+C"},
    Modele{3, false, "A+n%", "A*(n/100+1)", "A*(n/100+1)"},
    Modele{2, false, "((A-B)/(a+1)+c)*(n+C)", "((A-B)/(a+1)+c)*(n+C)", "((A-B)/(a+1)+c)*(n+C)"},
    Modele{3, false, "A^2+nA+1", "A^2+n*A+1", "A^2+n*A+1"},
    Modele{2, false, "a*1.05^n", "a*1.05^n", "a*1.05^n"},
    Modele{2, false, "{PI}*A^2", "{_pi}*A^2", "{pi}*A^2"},
    Modele{3, false, "{SIN}(d)+{COS}(A)", "{sin}(d*{rad})+{cos}(A*{rad})",
           "{s}(d*{rad})+{c}(A*{rad})"},
    Modele{1, false, "{TAN}(d)", "{tan}(d*{rad})", "{s}(d*{rad})/{c}(d*{rad})"},
    Modele{1, false, "{ATAN}(A/a)", "{atan}(A/a)/{rad}", "{a}(A/a)/{rad}"},
    Modele{2, false, "{SQRT}(A*B)", "{sqrt}(A*B)", "{sqrt}(A*B)"},
    Modele{2, false, "{EXP}(-A/1000)*b", "{exp}(-A/1000)*b", "{e}(-A/1000)*b"},
    Modele{2, false, "{LN}(A+1)", "{ln}(A+1)", "{l}(A+1)"},
    Modele{1, false, "{LOG}(A+1)*a", "{log10}(A+1)*a", "{l}(A+1)/{ln10}*a"},
    Modele{1, false, "{SQR}(A)+{ABS}(B-C)", "(A)^2+{abs}(B-C)", "(A)^2+{abs}(B-C)"},
};

constexpr std::array kCommentaires = {
    "! loyer du mois"_fr,       "! relevé de la semaine"_fr, "! prix hors taxe"_fr,
    "! moyenne des notes"_fr,   "! côté du triangle"_fr,     "! reste à payer"_fr,
    "! surface de la pièce"_fr, "! deuxième trimestre"_fr,   "! à vérifier avec Paul"_fr,
};

// What has to be known before the first formula.
constexpr std::string_view kPrologueBc =
    "define abs(x){if(x<0)return(-x);return(x)}\npi=4*a(1)\nrad=pi/180\nln10=l(10)\n";

using Hasard = std::mt19937;

int au_hasard(Hasard& hasard, int debut, int fin) {
    return debut + static_cast<int>(hasard() % static_cast<unsigned>(fin - debut + 1));
}

// True `fois` times in a hundred.
bool tombe(Hasard& hasard, int fois) { return au_hasard(hasard, 1, 100) <= fois; }

// A number from 1 to 400 as users type it: whole, or with one or two decimals.
std::string nombre(Hasard& hasard) {
    std::string texte = std::to_string(au_hasard(hasard, 1, 400));
    const int decimales = au_hasard(hasard, 0, 2);
    for (int i = 0; i < decimales; ++i)
        texte += (i == 0 ? "." : "") + std::to_string(au_hasard(hasard, 0, 9));
    return texte;
}

// What the placeholders of one formula stand for.
struct Choix {
    std::array<std::string, 128> texte;  // by placeholder
};

Choix choisit(Hasard& hasard) {
    Choix choix;
    for (const char c : {'A', 'B', 'C'})
        choix.texte[static_cast<std::size_t>(c)] =
            static_cast<char>('A' + au_hasard(hasard, 0, 25));
    for (const char c : {'a', 'b', 'c'}) choix.texte[static_cast<std::size_t>(c)] = nombre(hasard);
    choix.texte['n'] = std::to_string(au_hasard(hasard, 2, 12));
    choix.texte['d'] = std::to_string(au_hasard(hasard, 1, 85));
    return choix;
}

// The formula of a model with its placeholders filled.
std::string remplit(std::string_view modele, const Choix& choix) {
    std::string sortie;
    bool nom = false;
    for (const char c : modele) {
        const std::string& texte = choix.texte[static_cast<std::size_t>(c)];
        if (c == '{' || c == '}')
            nom = c == '{';
        else if (nom || texte.empty())
            sortie += c;
        else
            sortie += texte;
    }
    return sortie;
}

std::string en_petites_lettres(std::string texte) {
    for (char& c : texte) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return texte;
}

// How often a model comes in a sheet of this kind.
int poids(const Modele& modele, Melange melange) {
    const bool fonction = modele.feuille.find('{') != std::string_view::npos;
    return melange == Melange::tout || fonction ? modele.poids : 0;
}

const Modele& choisit_modele(Hasard& hasard, Melange melange) {
    int total = 0;
    for (const Modele& m : kModeles) total += poids(m, melange);
    int reste = au_hasard(hasard, 1, total);
    for (const Modele& m : kModeles)
        if ((reste -= poids(m, melange)) <= 0) return m;
    return kModeles[0];
}

// Notes the formula for the three programs and adds its text, as the user typed it, to the sheet.
void ajoute_formule(FeuilleMixte& f, const Modele& modele, const Choix& choix, std::int16_t numero,
                    bool petites) {
    const std::string texte = remplit(modele.feuille, choix);
    f.texte += petites ? en_petites_lettres(texte) : texte;
    f.muparser.push_back(remplit(modele.muparser, choix));
    f.bc += en_petites_lettres(remplit(modele.bc, choix)) + "\n";
    f.numero.push_back(numero);
    f.affectation.push_back(modele.affectation);
}

std::string_view commentaire(Hasard& hasard) {
    return kCommentaires[hasard() % kCommentaires.size()];
}

// One line after the opening ones.
void ajoute_ligne(FeuilleMixte& f, Hasard& hasard, std::int16_t numero, Melange melange) {
    if (tombe(hasard, 12)) {
        if (tombe(hasard, 65)) f.texte += commentaire(hasard);
        return;
    }
    const Modele& modele = choisit_modele(hasard, melange);
    const Choix choix = choisit(hasard);
    ajoute_formule(f, modele, choix, numero, tombe(hasard, 15));
    if (tombe(hasard, 12)) (f.texte += ' ') += commentaire(hasard);
    if (tombe(hasard, 60)) (f.texte += " = ") += nombre(hasard);
}

}  // namespace

FeuilleMixte cree_feuille_mixte(int lignes, Melange melange) {
    FeuilleMixte f;
    Hasard hasard(20240229);
    f.bc = kPrologueBc;
    for (int i = 1; i <= lignes; ++i) {
        if (i > 1) f.texte += "\r\n";
        if (i > 26) {
            ajoute_ligne(f, hasard, static_cast<std::int16_t>(i), melange);
            continue;
        }
        Choix choix = choisit(hasard);
        choix.texte['A'] = static_cast<char>('A' + i - 1);
        ajoute_formule(f, kModeles[0], choix, static_cast<std::int16_t>(i), false);
    }
    return f;
}
