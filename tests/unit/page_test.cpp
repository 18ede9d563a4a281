// The page of a sheet with random numbers shows those of the sheet, whatever has happened since they were drawn.
#include <doctest/doctest.h>

#include <string>

#include "base/codepage.hpp"
#include "exchange/page.hpp"
#include "platform/platform.hpp"
#include "shell/events.hpp"
#include "study/sheet_study.hpp"
#include "unit/one_sheet.hpp"

namespace {

const std::string kDes = "A=INT(1000000*ALEA)\r\nB=A*2\r\nINCX(1,1,3)\r\nX+INT(1000000*ALEA)\r\nA+INT(1000000*ALEA)";

// The sheet as the program has calculated it.
std::string calculee(const std::string& texte) {
    port.texte.pose_texte(std::string(texte));
    port.texte.pose_selection(0, 0);
    evenement_menu("mnuCalculItem");
    return port.texte.texte();
}

std::string page_de(const std::string& texte) { return page_html(rapport_de(texte, true), "essai"); }

// Whether the page shows each number of the sheet, in its formulas and tables and not in the text at its end alone.
void montre_les_nombres(const std::string& page, const std::string& feuille) {
    const std::string haut = page.substr(0, page.find("<h2>Texte de la feuille"));
    for (const std::string ligne : {"B=A*2 = ", "f(1) = ", "f(3) = ", "A+INT(1000000*ALEA) = "}) {
        const std::size_t place = feuille.find(ligne);
        REQUIRE(place != std::string::npos);
        const std::size_t debut = place + ligne.size();
        const std::string nombre = feuille.substr(debut, feuille.find("\r\n", debut) - debut);
        INFO(ligne, nombre, "\n", haut);
        CHECK(haut.find(">" + nombre + "<") != std::string::npos);
    }
    CHECK(page.find(feuille) != std::string::npos);
}

}  // namespace

TEST_CASE("the page of a sheet shows the random numbers that the sheet shows") {
    demarre_avec_feuille();
    const std::string feuille = calculee(kDes);
    montre_les_nombres(page_de(feuille), feuille);
    CHECK(page_de(feuille) == page_de(feuille));
}

TEST_CASE("the page shows the same random numbers when other sheets were calculated since") {
    demarre_avec_feuille();
    const std::string feuille = calculee(kDes);
    for (int i = 0; i < 7; ++i) CHECK(calculee(kDes) != feuille);
    montre_les_nombres(page_de(feuille), feuille);
}

TEST_CASE("lines that are added to a sheet with random numbers are calculated with them") {
    demarre_avec_feuille();
    const std::string feuille = calculee(kDes);
    const std::string page = page_de("! Des tirages\r\n" + feuille + "\r\nB-2*A+17");
    montre_les_nombres(page.substr(0, page.find("<h2>")) + feuille, feuille);
    CHECK(page.find("<mn>17</mn><mo>=</mo><mn>17</mn>") != std::string::npos);
}

TEST_CASE("random numbers that were never drawn here are shown as the sheet shows them") {
    demarre_avec_feuille();
    const std::string feuille = "A=INT(6*ALEA)+1 = 4\r\nB=A*2 = 8\r\nINCX(1,1,2)\r\nX+ALEA\r\nf(1) = 1.25\r\nf(2) = 2.5\r\nA/8 = 0.5";
    const std::string page = page_de(feuille);
    const std::string haut = page.substr(0, page.find("<h2>"));
    CHECK(haut.find("<mn>1</mn><mo>=</mo><mn>4</mn>") != std::string::npos);
    CHECK(haut.find("<mn>2</mn><mo>=</mo><mn>8</mn>") != std::string::npos);
    CHECK(haut.find("<code>f(2) = 2.5</code>") != std::string::npos);
    CHECK(haut.find("<mo>=</mo><mn>0,5</mn>") != std::string::npos);
    CHECK(page.find(feuille) != std::string::npos);
}

TEST_CASE("a sheet that wasn't calculated yet gets random numbers for its page") {
    demarre_avec_feuille();
    const std::string page = page_de(kDes);
    CHECK(page.find("f(3) = ") != std::string::npos);
    CHECK(page.find("<th scope=\"col\">f(X)</th>") != std::string::npos);
}

TEST_CASE("the studies of a page know the same random numbers as its lines") {
    demarre_avec_feuille();
    const std::string texte = "A=INT(1000*ALEA)\r\nINCX(0,1,3)\r\nX+A";
    const std::string feuille = calculee(texte);
    calculee(texte);
    garde_etude(fonctions_de_feuille(feuille).at(0), "");
    const Rapport rapport = rapport_de(feuille, true);
    CHECK(rapport.texte == feuille);
    const std::size_t debut = feuille.find("f(0) = ") + 7;
    CHECK(refais_etudes(rapport.texte)->at(0).etude.y.front() == std::stod(feuille.substr(debut)));
}

TEST_CASE("a page whose studies the user gives up isn't written") {
    demarre_avec_feuille();
    port.texte.pose_texte("INCX(0,1,3)\r\nSIN(X)");
    garde_etude(fonctions_de_feuille(port.texte.texte()).at(0), "");
    const Rapport rapport = rapport_de(port.texte.texte(), true);
    const auto avant = port.systeme.interrompu;
    port.systeme.interrompu = [] { return true; };
    CHECK_FALSE(refais_etudes(rapport.texte).has_value());
    port.systeme.interrompu = avant;
}

TEST_CASE("the page holds the studies of its functions as the sheet is now") {
    demarre_avec_feuille();
    port.texte.pose_texte("A=2\r\nINCX(-2,1,5)\r\nX^2-A\r\nDEFFON=2*X+1\r\nFON(3)");
    port.texte.pose_selection(20, 0);
    evenement_menu("mnuEtudierItem");
    evenement_menu("CmdVoxtab");
    port.texte.pose_texte("! titre\r\nA=4\r\nINCX(-2,1,5)\r\nX^2-A\r\nDEFFON=2*X+1\r\nFON(3)");
    const Rapport rapport = rapport_de(port.texte.texte(), true);
    const auto etudes = refais_etudes(rapport.texte);
    REQUIRE(etudes->size() == 1);
    const std::string page = page_html(rapport, "essai", *etudes);
    const std::size_t etude = page.find("<h2>Étude de X^2-A, X de -2 à 2</h2>");
    REQUIRE(etude != std::string::npos);
    CHECK(page.find("<li>Zéro : X = 2</li>") != std::string::npos);
    CHECK(page.find("<caption>Tableau de variations : X^2-A</caption>") != std::string::npos);
    CHECK(page.find("<tr><th scope=\"row\">-2</th><td>0</td><td>décroît ") != std::string::npos);
    CHECK(etude > page.find("</figure>"));
    CHECK(etude < page.find("<mi>FON</mi>"));
}

TEST_CASE("the study of a function without a heading is in the page over the interval that was asked for") {
    demarre_avec_feuille();
    const std::string feuille = "DEFFON=2*X+0.5\r\nFON(3)";
    garde_etude(*fonction_au_curseur(feuille, 1), "-1,1");
    const Rapport rapport = rapport_de(feuille, true);
    const std::string page = page_html(rapport, "essai", *refais_etudes(rapport.texte));
    CHECK(page.find("<h2>Étude de 2*X+0,5, X de -1 à 1</h2>") != std::string::npos);
    CHECK(page.find("<li>Zéro : X = -0,25</li>") != std::string::npos);
}

TEST_CASE("the study of a function finds the random number above it that the sheet shows") {
    demarre_avec_feuille();
    const std::string feuille = calculee("A=INT(1000*ALEA)\r\nINCX(0,1,3)\r\nX+A");
    EtudeDeFeuille etude;
    REQUIRE(etudie_fonction(feuille, fonctions_de_feuille(feuille).at(0), "", etude).empty());
    const std::size_t debut = feuille.find("f(0) = ") + 7;
    CHECK(etude.etude.y.front() == std::stod(feuille.substr(debut)));
}
