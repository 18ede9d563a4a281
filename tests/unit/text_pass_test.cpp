// The pass as a procedure over text: text, cursor and modes in; text, cursor, line to say and refusal out. No
// port is installed beyond the harmless one.
#include <doctest/doctest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "sheet/spoken_result.hpp"
#include "state/modes.hpp"
#include "state/sheet.hpp"
#include "state/variables.hpp"
#include "unit/helpers.hpp"

namespace {

// A calculation that nothing has been asked of yet, with nobody who hears it.
void calcul_neuf() {
    installe_port_vide();
    reinitialise_calcul();
}

std::string lignes(std::size_t nombre) {
    std::string texte = "1";
    for (std::size_t i = 1; i < nombre; ++i) texte += "\r\n1";
    return texte;
}

}  // namespace

TEST_CASE("text pass: every line gets its result, and the cursor's line is the one to say") {
    struct Cas {
        std::size_t curseur;
        std::size_t attendu;
        const char* message;
    };
    const std::string texte = "A=2\r\nA*3 ! triple\r\n\r\nA+1";
    for (const Cas& cas : {Cas{0, 7, "A=2 = 2"}, Cas{3, 7, "A=2 = 2"}, Cas{6, 25, "A*3 ! triple = 6"},
                           Cas{texte.size(), 36, "A+1 = 3"}, Cas{19, 27, ""}}) {
        CAPTURE(cas.curseur);
        calcul_neuf();
        const Calcul calcul = calcule_feuille(texte, cas.curseur);
        CHECK(calcul.issue == Issue::ecrite);
        CHECK(calcul.texte == "A=2 = 2\r\nA*3 ! triple = 6\r\n\r\nA+1 = 3");
        CHECK(calcul.curseur == cas.attendu);
        CHECK(calcul.message(calcul.texte) == cas.message);
        CHECK_FALSE(calcul.erreur);
    }
}

TEST_CASE("text pass: the line that fails takes the cursor, and those below it are copied") {
    calcul_neuf();
    const Calcul calcul = calcule_feuille("1+1\r\n2*K\r\n3+3", 0);
    CHECK(calcul.issue == Issue::ecrite);
    CHECK(calcul.erreur);
    CHECK(vers_utf8(calcul.texte) == "1+1 = 2\r\n2*K = variable K non définie\r\n3+3");
    CHECK(vers_utf8(calcul.message(calcul.texte)) == "2*K = variable K non définie");
    CHECK(calcul.curseur == calcul.texte.find("\r\n3+3"));
    CHECK_FALSE(calcule_feuille("1+1", 0).erreur);
}

TEST_CASE("text pass: a calculated sheet is given back as it stands") {
    calcul_neuf();
    const std::string une = calcule_feuille("DEFMA\r\n1,2\r\nFIN\r\nMA+MA\r\nSTATX(1;2;3)", 2).texte;
    CHECK(calcule_feuille(une, 2).texte == une);
    CHECK(feuille.passes == 2);
}

TEST_CASE("text pass: no text, no pass") {
    calcul_neuf();
    const Calcul calcul = calcule_feuille("", 0);
    CHECK(calcul.issue == Issue::vide);
    CHECK(calcul.texte.empty());
    CHECK(feuille.passes == 0);
    CHECK_FALSE(feuille.passe_refusee);
}

TEST_CASE("text pass: more lines than can be numbered are refused, and nothing is done") {
    calcul_neuf();
    std::string boite;
    static std::string* vue = nullptr;
    vue = &boite;
    port.boites.boite = [](std::string_view texte) { *vue = texte; };
    CHECK(calcule_feuille(lignes(32767), 0).issue == Issue::ecrite);
    CHECK(boite.empty());
    const Calcul calcul = calcule_feuille(lignes(32768), 0);
    CHECK(calcul.issue == Issue::refusee);
    CHECK(calcul.texte.empty());
    CHECK(feuille.passe_refusee);
    CHECK(boite == "6 6 sur recalcul");
}

TEST_CASE("text pass: results are written in the current modes") {
    calcul_neuf();
    modes.mode_nombre = 2;
    CHECK(calcule_feuille("200+55", 0).texte == "200+55 = FF");
    modes.mode_nombre = 1;
    modes.mode_affichage = 3;
    const Calcul puissance = calcule_feuille("200+55", 0);
    CHECK(puissance.texte == "200+55 = 2.55E2");
    modes.mode_affichage = 2;
    recrit_resultats();
    CHECK(feuille.resultat_ligne(1) == " = 255");
}

TEST_CASE("text pass: the text may go while a box waits") {
    calcul_neuf();
    static std::string texte;
    texte = "1+1\r\n2\t+2\r\n3+3 et une suite pour que le texte ne tienne pas dans la chaine";
    port.boites.boite = [](std::string_view) { texte = std::string(); };
    const Calcul calcul = calcule_feuille(texte, 0);
    CHECK(texte.empty());
    CHECK(calcul.texte.starts_with("1+1 = 2\r\n2\t+2\r\n3+3 et une suite"));
    CHECK(calcul.texte.ends_with("chaine"));
}

TEST_CASE("text pass: the total is a new last line, and the value of Z") {
    calcul_neuf();
    const Calcul calcul = calcule_feuille("1+1\r\n2*5", 0);
    const Total total = total_colonne(calcul.texte);
    CHECK(total.texte == "1+1 = 2\r\n2*5 = 10\r\nZ= 12");
    CHECK(total.resultat == " = 12");
    CHECK(valeur_variable(26) == 12);
    CHECK(variable_definie(26));
}

TEST_CASE("text pass: a full sheet has no room for a total") {
    calcul_neuf();
    const Calcul calcul = calcule_feuille(lignes(32767), 0);
    CHECK(numero_defaillance([&] { total_colonne(calcul.texte); }) == kDepassement);
}

TEST_CASE("text pass: the result of a line is found where the cursor stands") {
    calcul_neuf();
    const std::string texte = calcule_feuille("1+1\r\nrien = 4\r\n2*5", 0).texte;
    CHECK(resultat_sous_curseur(texte, 0) == " = 2");
    const std::string change = "! en plus\r\n" + texte;
    CHECK(resultat_sous_curseur(change, 0).empty());
    CHECK(resultat_sous_curseur(change, change.size()) == resultat_sous_curseur(texte, texte.size()));
    CHECK(resultat_sous_curseur("1+1 = 9", 3) == "= 9");
}
