// Where a failed line is at fault: the column of the sheet, the piece and the first words.
#include "sheet/fault.hpp"

#include <doctest/doctest.h>

#include <string>

#include "base/codepage.hpp"
#include "sheet/recalculation.hpp"
#include "shell/reset.hpp"
#include "state/sheet.hpp"
#include "unit/helpers.hpp"

namespace {

struct Cas {
    const char* feuille;   // UTF-8, ¶ ends a line
    std::size_t ligne, colonne;
    const char* morceau;
    const char* mots;
};

std::string page(const char* utf8) {
    std::string texte(utf8);
    for (std::size_t i = texte.find("¶"); i != std::string::npos; i = texte.find("¶", i)) texte.replace(i, 2, "\r\n");
    return depuis_utf8(texte).value();
}

const Cas kCas[] = {
    // the symbol that can't be read
    {"2*(3+)", 1, 6, ")", "attend fact: k, var, (: ')"},
    {"2*-3", 1, 3, "-", "attend fact: k, var, (: '-"},
    {".5+1", 1, 1, ".5", "attend fact: k, var, (: '.5"},
    {"2+", 1, 3, "", "attend fact: k, var, (: '@"},
    {"2*(3+4", 1, 7, "", "manque )"},
    {"A=3¶A+Q*2", 2, 3, "Q", "variable Q non définie"},
    {"racine(4)", 1, 1, "racine", "variable non reconnue"},
    {"œ12", 1, 1, "œ12", "constante erronee"},
    {"COS 60", 1, 5, "60", "Manque une ("},
    {"ANP(5)", 1, 6, ")", "Manque une ,"},
    {"ANP(5", 1, 6, "", "Manque une ,"},
    // the value that can't be computed
    {"1+5/0", 1, 5, "0", "division par 0"},
    {"1+5/(2-2)+4", 1, 5, "(2-2)", "division par 0"},
    {"0^(-1)", 1, 1, "0^(-1)", "division par 0"},
    {"2+LN(0)", 1, 3, "LN(0)", "argument negatif ou nul"},
    {"2*sqrt( -1 )+1", 1, 3, "sqrt( -1 )", "argument négatif"},
    {"1+ACOS(2)", 1, 3, "ACOS(2)", "Argument incorrect"},
    {"7+(-8)^(1/3)", 1, 3, "(-8)^(1/3)", "Erreur de puissance : a^b avec a négatif et b non entier"},
    {"100 OR 20%", 1, 10, "%", "Pourcentage que sur + et -"},
    {"1+CNP(2,3)", 1, 3, "CNP(2,3)", "Chaine ambigue"},
    {"3+FACT(171)", 1, 3, "FACT(171)", "6 6 sur factoriel"},
    {"FON(3)", 1, 1, "FON(3)", "Fonction inconnue"},
    {"deffon=1/x¶2*FON(0)+1", 2, 3, "FON(0)", "division par 0"},
    // what the sheet adds to the formula, or takes from it
    {"  1+Q = 4 ! essai", 1, 3, "Q", "variable Q non définie"},
    {"A=2¶3A+2²+Q ! comme", 2, 7, "Q", "variable Q non définie"},
    {"A=2¶3A²+4A+1/0", 2, 10, "0", "division par 0"},
    {"STATX(12;15;Q;3)", 1, 13, "Q", "variable Q non définie"},
    {"STATX(12,2;1;Q)", 1, 14, "Q", "variable Q non définie"},
    {"STATXY(1,2;3,Q)", 1, 14, "Q", "variable Q non définie"},
    {"STATX(2,-1)", 1, 9, "-1", "effectif négatif"},
    {"DEFFON = 2*x*X", 1, 14, "X", "2 variables X,X"},
    {"A=1¶B=3+A*Z=7", 2, 7, "Z", "variable Z non définie"},
    // a line as a whole
    {"DEFFON=3+4", 1, 1, "DEFFON=3+4", "variable inconnue"},
    {"TRISTATX", 1, 1, "TRISTATX", "statx non présent"},
    {"DEFMA¶1,2¶3,4,5", 3, 1, "3,4,5", "Nombre de colonnes différents 2 3"},
    {"DEFMA¶1,2¶DEFMB", 3, 1, "DEFMB", "matrice précédente non terminée"},
    {"DEFMK", 1, 1, "DEFMK", "matrice  interdite"},
    // the elements of matrices and of data sets
    {"A=3¶DEFMA¶1,2¶3, 2A+Q¶FIN¶5", 4, 7, "Q", "variable Q non définie"},
    {"DEFMA¶1,2,¶FIN", 2, 1, "1,2,", "9 9sur RangeChiffreMatrice"},
    {"STATX¶12,15¶1+Q,4¶FIN", 3, 3, "Q", "variable Q non définie"},
    {"STATX¶12,Q¶FIN", 2, 4, "Q", "variable Q non définie"},
    {"STATXY¶1,2,3¶2,4¶! la suite", 3, 1, "2,4", "Nombre des x=3 différent des y= 2"},
    // matrices
    {"DEFMA¶1,2¶FIN¶MC=MA+2", 4, 4, "MA+2", "addition uniquement entre matrice"},
    {"DEFMA¶1,2¶FIN¶MC=MA^2", 4, 4, "MA^2", "Matrice incompatible pour la puissance"},
    {"DEFMA¶1,2¶FIN¶1+DETMAT(MA)", 4, 3, "DETMAT(MA)", "matrice non carée  1, 2"},
    {"MA=3", 1, 4, "3", "matrice de travail vide"},
    {"MB+1", 1, 1, "MB", "matrice MB non définie"},
    // tables and areas: the heading, or the function below it
    {"A=1¶INCX(1,Q,3)¶X²", 2, 8, "Q", "variable Q non définie"},
    {"A=1¶INCX(0,1,3)¶1/X", 3, 1, "1/X", "fonction non définie"},
    {"AIRX(0,1,2)¶1/X", 2, 1, "1/X", "f(x1) non défini"},
    // blocks above move the line
    {"STATX(1;2)¶A+1", 9, 1, "A", "variable A non définie"},
    {"1+\t2", 1, 3, "\t", "code < 32 en colonne 3"},
};

}  // namespace

TEST_CASE("fault: the column, the piece and the first words of a failed line") {
    for (const Cas& cas : kCas) {
        CAPTURE(std::string(cas.feuille));
        reinitialise_tout();
        const Calcul calcul = calcule_feuille(page(cas.feuille), 0);
        const Morceau place = place_de_la_faute(calcul.texte);
        REQUIRE(place.debut != Morceau::kAilleurs);
        CHECK(feuille.faute.ligne == cas.ligne);
        CHECK(feuille.faute.colonne == cas.colonne);
        CHECK(vers_utf8(calcul.texte.substr(place.debut, place.fin - place.debut)) == std::string(cas.morceau));
        CHECK(vers_utf8(feuille.faute.mots) == std::string(cas.mots));
    }
}
