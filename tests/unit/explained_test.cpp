// Which entry of the guide explains a message, whatever its parts that change.
#include "shell/explained.hpp"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>
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
        {"copié : 2,4;6,8", "Message : copié : 42.5"},
        {"2 résultats copiés", "Message : 3 résultats copiés, 1 ligne sans résultat"},
        {"1 résultat copié, 4 lignes sans résultat", "Message : 1 résultat copié"},
        {"5 constats, 1 faux probable", "Message : 3 constats, 2 faux probables"},
        {"2 constats", "Message : 1 constat, 1 faux probable"},
        {"attention ligne 12 et 1 autre constat", "Message : attention ligne 3 et 1 autre constat"},
        {"page exportée : mon devoir.html", "Message : page exportée : devoir.html"},
        {"pas de fonction en W", "Message : pas de fonction en Z"},
        {"parenthèse ouvrante colonne 4 autour de rien", "Message : parenthèse ouvrante colonne 3 autour de A plus 1"},
        {"parenthèse fermante colonne 12 sans ouvrante", "Message : parenthèse fermante colonne 8 sans ouvrante"},
        {"rien n'est importé : ligne 4, colonne 2 : \"un mot\" n'est pas un nombre",
         "Message : rien n'est importé : ligne 3, colonne 2 : \"abs\" n'est pas un nombre"},
        {"rien n'est importé : ligne 4 : 1 colonne, 3 sur les autres lignes",
         "Message : rien n'est importé : ligne 2 : 3 colonnes, 2 sur les autres lignes"},
        {"ligne 14, virgule : 3,5A est lu 3, la suite n'est pas calculée",
         "Message : ligne 1, virgule : 1,5+2 est lu 1, la suite n'est pas calculée ; tapez 1.5+2"},
        {"C:\\mes notes\\x.VXTdéja ouvert", "Boîte : C:\\devoir.VXTdéja ouvert"},
        {"a.b.VXT : ce fichier n'existe pas", "Boîte : devoir.VXT : ce fichier n'existe pas"},
        {"police Arial Taille 9.75", "Boîte : police Courier Taille 15"},
        {"caractère refusé U+03A9 ligne 1 colonne 2", "Boîte : caractère refusé U+2260"},
        {"1 fichier du dossier secours n'est pas une copie de secours entière ; il y reste : b.VXT",
         "Boîte : 1 fichier du dossier secours n'est pas une copie de secours entière ; il y reste : notes.VXT"},
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

namespace {

// The words of an entry with other figures: what another sheet makes of the same message.
std::string autres_chiffres(std::string_view mots) {
    std::string autres;
    for (std::size_t i = 0; i < mots.size(); ++i) {
        const bool chiffre = mots[i] >= '0' && mots[i] <= '9';
        const bool suivant = i + 1 < mots.size() && mots[i + 1] >= '0' && mots[i + 1] <= '9';
        autres += mots[i];
        if (chiffre && !suivant) autres += '7';
    }
    return autres;
}

std::string sans_chiffres(std::string_view mots) {
    std::string lettres(mots);
    std::erase_if(lettres, [](char c) { return c >= '0' && c <= '9'; });
    return lettres;
}

}  // namespace

TEST_CASE("explained: every message of the guide leads to its entry, whatever its numbers") {
    std::ifstream fichier(VOXTAB_TESTS "/../data/aide.txt", std::ios::binary);
    const std::string utf8{std::istreambuf_iterator<char>(fichier), {}};
    std::string guide;
    for (const char c : page(utf8)) guide += c == '\n' ? std::string("\r\n") : std::string(c == '\r' ? 0 : 1, c);
    int essais = 0;
    for (std::size_t debut = 0, fin; debut < guide.size(); debut = fin + 2) {
        fin = guide.find("\r\n", debut);
        const std::string ligne = guide.substr(debut, fin - debut);
        for (const std::string& genre : {page("Message : "), page("Boîte : ")}) {
            if (!ligne.starts_with(genre)) continue;
            const std::string mots = ligne.substr(genre.size());
            const std::string dits = mots.starts_with("f(") ? mots : autres_chiffres(mots);   // always that figure
            const std::size_t place = entree_du_guide(guide, dits, genre.starts_with('B'));
            CAPTURE(vers_utf8(dits));
            REQUIRE(place != std::string::npos);
            const std::string trouvee = guide.substr(place, guide.find("\r\n", place) - place);
            CAPTURE(vers_utf8(trouvee));
            CHECK(sans_chiffres(trouvee.substr(trouvee.find(": "))) == sans_chiffres(ligne.substr(ligne.find(": "))));
            essais += dits != mots;
        }
    }
    CHECK(essais > 90);
}
