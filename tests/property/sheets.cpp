// Random sheets: ordinary lines, comments, singular lines, money, functions, errors.
#include "property/sheets.hpp"

#include <algorithm>
#include <utility>

#include "base/codepage.hpp"
#include "settings/settings.hpp"
#include "state/modes.hpp"

namespace {

constexpr std::string_view kAnciens[] = {
    " = 99",   " = 1.5E+20", " =1,2;3,4 =2,2",  " = division par 0",
    " = -0.5", " = 3Pi/4",   " = manque ) = 7", " = "};

// Texts for comments. None holds a word that the pass looks for after a calculated line.
constexpr std::string_view kRemarques[] = {
    "somme"_fr,      "prix HT (euros)"_fr, "voir page 3"_fr, "l'été, à revoir"_fr,
    "INC et AIR"_fr, "2*3, 4;5"_fr,        "\"x\" % œ ²"_fr};
// Lines that stand for themselves, whatever they hold.
constexpr std::string_view kCommentaires[] = {"! Budget de l'année"_fr,
                                              "!"_fr,
                                              "! a=b = c"_fr,
                                              "!STATX(1;2) INC AIR DEFMA"_fr,
                                              "! fin de la première partie"_fr,
                                              "!! 1/0"_fr,
                                              "! =1,2;3 =2,2"_fr};
constexpr std::string_view kInertes[] = {"fin"_fr,     "2+2 ! fin"_fr,          "FINAL"_fr,
                                         "1/0 fin"_fr, "fin résultat statx"_fr, "A définir"_fr};

// Lines with a rule of their own, none of which fails.
constexpr std::string_view kSingulieres[] = {
    "2 3"_fr,       "(2)3"_fr,   "2+3)4"_fr,      "2(3)"_fr,        "1,5"_fr, "2@3"_fr,
    "2*50%"_fr,     "2PI-PI"_fr, "2=3"_fr,        "-2^2"_fr,        "3;4"_fr, "1 000"_fr,
    "NOT NOT 1"_fr, "2^3^2"_fr,  "0^0"_fr,        "100+50%+50%"_fr, "$"_fr,   "#"_fr,
    "2.9 OR 0"_fr,  "0^(-2)"_fr, "FACT(-1)+2"_fr, "+5"_fr,          "$G1"_fr, "(-8)^3"_fr};

// Lines that fail, with the same words at every pass.
constexpr std::string_view kErreurs[] = {
    "1/0"_fr,        "2*-3"_fr,       "LN(0)"_fr,       "SQRT(-1)"_fr,  "(2+3"_fr,
    "COS 1"_fr,      "B1"_fr,         "ANP(2,3)"_fr,    "FACT(171)"_fr, "5000000000 OR 1"_fr,
    "EXP(1000)"_fr,  "œ12"_fr,        ".5"_fr,          "(-2)^0.5"_fr,  "DEFFON=3+4"_fr,
    "DEFFON=X*X"_fr, "100 OR 20%"_fr, "2\t3"_fr,        "AB"_fr,        "TAN(5"_fr,
    "0^(-1)"_fr,     "=5"_fr,         "STATX(1,-1)"_fr, "ASIN(2)"_fr,   "-"_fr,
    "1E999"_fr,      "SQRT(0-4)"_fr,  "É"_fr,           "MK"_fr};

}  // namespace

Reglage tire_reglage(Tirage& t) {
    Reglage r;
    r.mode_nombre = t.une_fois_sur(8) ? 2 : 1;
    r.mode_affichage = static_cast<std::int16_t>(t.entre(1, 3));
    constexpr std::int16_t decimales[] = {0, 1, 2, 2, 2, 3, 6, 15, 100};
    r.nombre_decimal = t.un_de(decimales);
    r.unite_angle = static_cast<std::int16_t>(t.entre(1, 3));
    r.matrice_colonne = t.entre(0, 1);
    r.stat_restreint = t.entre(0, 1);
    return r;
}

void pose_reglage(const Reglage& reglage) {
    modes.mode_nombre = reglage.mode_nombre;
    modes.mode_affichage = reglage.mode_affichage;
    modes.nombre_decimal = reglage.nombre_decimal;
    modes.unite_angle = reglage.unite_angle;
    reglages.table_ini(kLigneAffichage).champ1 = reglage.matrice_colonne;
    reglages.table_ini(kLigneAffichage).champ2 = reglage.stat_restreint;
}

std::string Redaction::lettre_de(int numero) const {
    return std::string(1, static_cast<char>('A' + numero - 1));
}

void Redaction::ligne(const std::string& texte, std::string_view ancien, bool entiere) {
    feuille.gardees.push_back({texte, entiere, false, 0});
    std::string toute = texte;
    toute += ancien;
    if (t.une_fois_sur(8)) toute.insert(0, static_cast<std::size_t>(t.entre(1, 4)), ' ');
    if (t.une_fois_sur(8)) toute.append(static_cast<std::size_t>(t.entre(1, 4)), ' ');
    lignes.push_back(std::move(toute));
    bloc_attend = false;
}

// A line whose old result, if it has one, goes.
void Redaction::ligne_a_resultat(const std::string& texte) {
    const std::string_view ancien = t.une_fois_sur(4) ? t.un_de(kAnciens) : std::string_view();
    ligne(texte, soignee && !ancien.empty() ? kAnciens[0] : ancien);
}

// A line whose result is known: it shows the formula's value.
void Redaction::ligne_de_formule(const std::string& texte, const Formule& f) {
    ligne_a_resultat(change_casse(t, texte) + commentaire());
    feuille.gardees.back().connue = f.connue && !echouee;
    feuille.gardees.back().valeur = f.valeur;
}

void Redaction::vieille(const std::string& texte) { lignes.push_back(texte); }

void Redaction::pose(int lettre, const Formule& f) {
    variables[static_cast<std::size_t>(lettre)] = {true, f.connue, f.valeur,
                                                   f.connue ? 0 : f.rang + 1};
}

void Redaction::pose_valeur(char lettre, double valeur) {
    variables[static_cast<std::size_t>(lettre - 'A' + 1)] = {true, true, valeur, 0};
}

// The engine has a value there, but not one that is known here. Large values may come: no formula
// is to use it.
void Redaction::pose_inconnue(char lettre) {
    variables[static_cast<std::size_t>(lettre - 'A' + 1)] = {true, false, 0, 9};
}

std::string Redaction::commentaire() {
    if (!t.une_fois_sur(8)) return {};
    return (t.une_fois_sur(2) ? " ! " : "!") + std::string(t.un_de(kRemarques));
}

void Redaction::calcul() {
    const Formule f = Expressions(t, variables).somme(2);
    ligne_de_formule(f.texte, f);
}

void Redaction::affectation() {
    const int lettre = t.entre(1, 26);
    const Variable& cible = variables[static_cast<std::size_t>(lettre)];
    // The variable that the line assigns may be read in it: 0 when it is new, or the mean that
    // pairs have left in Y.
    if (!cible.definie && t.une_fois_sur(3)) {
        Formule f = Expressions(t, variables).litteral();
        ligne_a_resultat(lettre_de(lettre) + "=" + lettre_de(lettre) + "+" + f.texte);
        f.valeur += cible.valeur;
        pose(lettre, f);
        return;
    }
    const Formule f = Expressions(t, variables).somme(2);
    ligne_de_formule(lettre_de(lettre) + "=" + f.texte, f);
    pose(lettre, f);
}

void Redaction::ligne_commentee() { ligne(std::string(t.un_de(kCommentaires)), {}, true); }

void Redaction::singularite() {
    if (!soignee) ligne_a_resultat(std::string(t.un_de(kSingulieres)));
}

// A line that the pass never calculates: empty, with FIN, or the echo of a restricted result.
void Redaction::ligne_inerte() {
    switch (t.entre(0, 3)) {
        case 0: ligne("", {}, true); break;
        case 1:
            if (bloc_attend) ligne("7");  // right below a data set the echo would be its old block
            ligne("N= 3, X= 2 note", {}, true);
            break;
        default: ligne(soignee ? std::string() : std::string(t.un_de(kInertes)), {}, true);
    }
}

void Redaction::monnaie() {
    const std::string montant = std::to_string(t.entre(0, 3000)) + (t.une_fois_sur(2) ? ".5" : "");
    const bool vers_euro = t.une_fois_sur(2);
    const int lettre = t.entre(1, 26);
    const std::string appel = (vers_euro ? "FRANCEURO(" : "EUROFRANC(") + montant + ")";
    if (t.une_fois_sur(2)) {
        ligne_a_resultat(change_casse(t, lettre_de(lettre) + "=" + appel) + commentaire());
        pose_inconnue(static_cast<char>('A' + lettre - 1));
    } else {
        ligne_a_resultat(change_casse(t, appel) + commentaire());
    }
}

// A user function and calls of it. The call leaves its argument in the function's variable.
void Redaction::fonction() {
    const int lettre = t.entre(1, 26), k = t.entre(1, 9), genre = t.entre(0, 3);
    const std::string x = lettre_de(lettre), n = std::to_string(k);
    const std::string corps[] = {n + "*" + x + "+1", "(" + x + "-3)/" + n, n + "-" + x,
                                 "SQR(" + x + ")+" + n};
    const char* definition = t.une_fois_sur(3) ? "DEFFON =" : "DEFFON=";
    ligne(definition + corps[genre], t.une_fois_sur(4) ? " = manque" : "");
    for (int i = t.entre(0, 2); i > 0; --i) {
        const int argument = t.entre(0, 20), cible = t.entre(1, 26);
        const double a = argument;
        const double f[] = {k * a + 1, (a - 3) / k, k - a, a * a + k};
        const std::string appel = "FON(" + std::to_string(argument) + ")";
        const Formule somme{t.une_fois_sur(2) ? appel + "+2" : "2+" + appel, true, f[genre] + 2, 0};
        ligne_de_formule(lettre_de(cible) + "=" + somme.texte, somme);
        pose_valeur(x[0], a);
        pose(cible, somme);
    }
    fonction_vue = true;
}

void Redaction::erreur() {
    const int manque = t.entre(0, 9);
    const auto inconnue =
        std::find_if(variables.begin() + 1, variables.end(), [](const Variable& v) { return !v.definie; });
    if (manque == 0 && !statx_vu)
        ligne("TRISTATX");
    else if (manque == 1 && !statxy_vu)
        ligne("RESXY(1,2)", t.une_fois_sur(2) ? " = 5" : "");
    else if (manque == 2 && !fonction_vue)
        ligne("1+FON(2)");
    else if (manque == 3 && inconnue != variables.end())
        ligne(lettre_de(static_cast<int>(inconnue - variables.begin())) + "+1",
              t.une_fois_sur(2) ? " = variable Q non définie"_fr : "");
    else
        ligne(std::string(t.un_de(kErreurs)), t.une_fois_sur(4) ? " = 5" : "");
    if (!echouee) feuille.attendues = variables;
    echouee = true;
    feuille.saine = false;
    feuille.ligne_en_erreur = lignes.size();
}

void Redaction::morceau() {
    switch (t.entre(0, 19)) {
        case 0: ligne_commentee(); break;
        case 1: ligne_inerte(); break;
        case 2: singularite(); break;
        case 3: monnaie(); break;
        case 4: fonction(); break;
        case 5: tabulation(); break;
        case 6: aire(); break;
        case 7: definition_matrice(); break;
        case 8:
        case 9: ligne_matrice(); break;
        case 10: determinant(); break;
        case 11: stat_appel(); break;
        case 12: stat_bloc(); break;
        case 13: stat_couples(); break;
        case 14: stat_deux_listes(); break;
        case 15:
        case 16:
        case 17: affectation(); break;
        default: calcul();
    }
}

void Redaction::ligne_simple() {
    switch (t.entre(0, 3)) {
        case 0: ligne_commentee(); break;
        case 1: affectation(); break;
        default: calcul();
    }
}

FeuilleTiree Redaction::acheve() {
    if (!echouee) feuille.attendues = variables;
    if (!ouverte && t.une_fois_sur(4)) lignes.emplace_back();
    for (const std::string& l : lignes) {
        if (&l != &lignes.front()) feuille.texte += "\r\n";
        feuille.texte += l;
    }
    feuille.reglage = reglage;
    feuille.curseur = static_cast<std::size_t>(t.entre(0, static_cast<int>(feuille.texte.size())));
    return std::move(feuille);
}

FeuilleTiree tire_feuille_soignee(std::uint64_t graine) {
    Tirage t(graine);
    Redaction redaction(t, tire_reglage(t), true);
    for (int i = t.entre(1, 10); i > 0; --i) redaction.morceau();
    return redaction.acheve();
}

FeuilleTiree tire_feuille(std::uint64_t graine) {
    Tirage t(graine);
    Redaction redaction(t, tire_reglage(t));
    for (int i = t.entre(1, 10); i > 0; --i) redaction.morceau();
    if (t.une_fois_sur(3)) {
        redaction.erreur();
        for (int i = t.entre(0, 4); i > 0; --i) redaction.morceau();
    } else if (t.une_fois_sur(12)) {
        redaction.fin_ouverte();
    }
    return redaction.acheve();
}
