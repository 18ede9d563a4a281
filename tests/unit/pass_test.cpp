// What one pass leaves to the next: nothing that shows in the sheet.
#include <doctest/doctest.h>

#include <string>

#include "shell/calculation.hpp"
#include "state/modes.hpp"
#include "state/sheet.hpp"
#include "support/program.hpp"
#include "unit/helpers.hpp"

TEST_CASE("pass: the values of a data set are forgotten by the next pass") {
    // The function of the area reads the sorted data set, which stands only below it.
    const std::string premiere = calcule_neuf("AIRX(0,2,2)\r\nTRISTATX+X\r\nSTATX(1;2)");
    CHECK(premiere.starts_with("AIRX(0,2,2) = 0\r\n"));
    execute_commande("recalcul");
    CHECK(memoire.texte.starts_with("AIRX(0,2,2) = 0\r\n"));
}

TEST_CASE("pass: a sheet calculated behind another one gives what it gives alone") {
    const std::string autre =
        "DEFFON=X+1\r\nA=FON(2)\r\nSTATXY(1,2;3,5)\r\nSTATX(4;5)\r\nDEFMA\r\n1\r\nFIN";
    for (const char* feuille_essayee :
         {"FON(2)", "RESXY(1,2)", "TRISTATX", "A+1", "MA+MA", "Y=Y+1", "N", "INCX(1,1,2)\r\nX+A"}) {
        CAPTURE(feuille_essayee);
        const std::string seule = calcule_neuf(feuille_essayee);
        calcule_neuf(autre);
        pose_feuille(feuille_essayee);
        execute_commande("recalcul");
        CHECK(memoire.texte == seule);
    }
}

TEST_CASE("pass: the results of a pass are written anew in the current mode") {
    calcule_neuf("A=1500\r\nDEFMA\r\n1,2\r\nFIN\r\nMB=MA+MA\r\nA/1000");
    modes.mode_affichage = 3;
    re_valeur();
    CHECK(feuille.resultat_ligne(1) == " = 1.50E3");
    CHECK(feuille.resultat_ligne(5).starts_with(" =2"));
    CHECK(feuille.resultat_ligne(6) == " = 1.5E00");
    CHECK(memoire.texte.starts_with("A=1500 = 1500\r\n"));
}

TEST_CASE("pass: without a pass the results are written by one") {
    programme_neuf();
    pose_feuille("1+1");
    re_valeur();
    CHECK(memoire.texte == "1+1 = 2");
}
