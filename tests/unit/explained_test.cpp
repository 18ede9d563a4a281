// Which entry of the guide explains a message, whatever its parts that change.
#include "shell/explained.hpp"

#include <doctest/doctest.h>

#include <string>

#include "base/codepage.hpp"

namespace {

std::string page(std::string_view utf8) { return depuis_utf8(utf8).value(); }

// A guide with that line between two others.
std::string guide_avec(std::string_view entree) {
    return "GUIDE\r\n" + page(entree) + "\r\nDes mots.\r\nFin";
}

constexpr std::size_t kPlace = 7;   // where the second line of such a guide begins

}  // namespace

TEST_CASE("explained: a message is found by its words, whatever its letters, numbers and names") {
    const struct {
        const char* dit;
        const char* entree;
    } cas[] = {
        {"manque )", "Message : manque )"},
        {"attend fact: k, var, (: '*", "Message : attend fact: k, var, (: '-"},
        {"variable Z non définie", "Message : variable A non définie"},
        {"matrice MJ non définie", "Message : matrice MB non définie"},
        {"matrice MC non rangée", "Message : matrice MA non rangée"},
        {"2 variables X,Y", "Message : 2 variables X,X"},
        {"Matrice incompatible pour l'addition 3, 2;10, 1", "Message : Matrice incompatible pour l'addition 1, 2;1, 1"},
        {"Matrice incompatible pour la multiplication 3, 2; 4, 4",
         "Message : Matrice incompatible pour la multiplication 1, 2; 1, 1"},
        {"matrice non carée  3, 2", "Message : matrice non carée  1, 2"},
        {"matrice à inverser non carée  3, 2", "Message : matrice à inverser non carée  1, 2"},
        {"Nombre de colonnes différents 12 1", "Message : Nombre de colonnes différents 2 3"},
        {"matrice K+1 interdite", "Message : matrice  interdite"},
        {"erreur élément 12+Q", "Message : erreur élément Q"},
        {"Nombre des x=30 différent des y= 29", "Message : Nombre des x=3 différent des y= 2"},
        {"code < 32 en colonne 17", "Boîte : code < 32 en colonne 2"},
        {"fonction de T est inconnue sur la ligne suivante", "Boîte : fonction de X est inconnue sur la ligne suivante"},
        {"manque ) sur STATXY", "Boîte : manque ) sur STATX"},
        {"et 3 autres échecs", "Boîte : et 12 autres échecs"},
        {"6 6 sur compile_terme", "Panne 6 : un nombre est trop grand."},
        {"9 9sur RangeChiffreMatrice", "Panne 9 : une place."},
        {"28 28sur fon", "Panne 28 : sans fin."},
        {"6", "Panne 6 : un nombre est trop grand."},
        {"12 remplacement", "Message : 3 remplacement"},
        {"colonne 120 ligne 7", "Message : colonne 3 ligne 2"},
    };
    for (const auto& c : cas) {
        CAPTURE(std::string(c.dit));
        CHECK(entree_du_guide(guide_avec(c.entree), page(c.dit)) == kPlace);
        CHECK(entree_du_guide("GUIDE\r\nFin", page(c.dit)) == std::string::npos);
    }
}

TEST_CASE("explained: words that begin or end alike are not the same message") {
    CHECK(entree_du_guide(guide_avec("Message : manque )"), "manque ) sur STATX") == std::string::npos);
    CHECK(entree_du_guide(guide_avec("Message : variable A non définie"), page("variable non reconnue")) == std::string::npos);
    CHECK(entree_du_guide(guide_avec("Panne 61 : le disque."), "6 6 sur compile_terme") == std::string::npos);
    CHECK(entree_du_guide(guide_avec("Panne 6 : trop grand."), "6 2 sur compile_terme") == std::string::npos);
    CHECK(entree_du_guide(guide_avec("Message : manque )"), "") == std::string::npos);
}

TEST_CASE("explained: words of a box are explained as the box's") {
    const std::string guide = page("Message : fonction non définie\r\nx\r\nBoîte : fonction non définie\r\ny");
    const std::string mots = page("fonction non définie");
    CHECK(entree_du_guide(guide, mots) == 0);
    CHECK(entree_du_guide(guide, mots, true) == guide.find(page("Boîte")));
}

TEST_CASE("explained: the error after a line, and what is none") {
    CHECK(erreur_de_la_ligne("2+Q = variable Q non d\xE9" "finie") == "variable Q non d\xE9" "finie");
    CHECK(erreur_de_la_ligne("B=A/0 ! x=y = division par 0").empty());   // the comment's mark comes first
    CHECK(erreur_de_la_ligne("B=A/0 ! x = division par 0") == "division par 0");
    CHECK(erreur_de_la_ligne("STATX =erreur \xE9l\xE9ment Q") == "erreur \xE9l\xE9ment Q");
    CHECK(erreur_de_la_ligne("FACT(171) = ") == "=");
    for (const char* ligne : {"", "2+3 = 5", "2+3=", "2+3 =", "A=5", "! x = manque )", "MB=MA =1,2 =1,2", "DEFMA =2,2",
                              "X=moyenne des X= 12", "N= 3, X= 12, E= 2.45", "f(1) = 2", "fin r\xE9sultat statx"}) {
        CAPTURE(std::string(ligne));
        CHECK(erreur_de_la_ligne(ligne).empty());
    }
}
