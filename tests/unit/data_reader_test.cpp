// Files of data as other programs write them: what is found in them, what becomes of it in a sheet, and the one
// sentence for each that can't be read.
#include <doctest/doctest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/data_lines.hpp"
#include "exchange/data_number.hpp"
#include "exchange/data_reader.hpp"
#include "exchange/sheet_report.hpp"
#include "helpers.hpp"
#include "sheet/recalculation.hpp"

namespace {

// What is said of a file: what was found, or why it is refused.
std::string dit_de(std::string_view octets) {
    std::string refus;
    const auto donnees = lis_donnees(octets, refus);
    return vers_utf8(donnees ? mots_donnees(*donnees) : refus);
}

// The lines that the file becomes, in the form that is proposed or in another.
std::string lignes_de(std::string_view octets, std::string_view forme = "") {
    std::string refus;
    const auto donnees = lis_donnees(octets, refus);
    REQUIRE_MESSAGE(donnees.has_value(), vers_utf8(refus));
    const auto lignes = lignes_de_feuille(*donnees, forme.empty() ? forme_proposee(*donnees, "") : forme, refus);
    return vers_utf8(lignes ? *lignes : "refus : " + refus);
}

struct Cas {
    std::string_view octets, attendu;
};

}  // namespace

TEST_CASE("what a file of data holds is said in one sentence") {
    const auto cas = std::to_array<Cas>({
        {"1\n2\n3\n", "3 lignes, 1 colonne, nombres entiers, sans titre"},
        {"12,5\n14\n9,75\n", "3 lignes, 1 colonne, virgule décimale, sans titre"},
        {"x;y\n1,5;2\n3;4,25\n", "2 lignes, 2 colonnes, virgule décimale : colonnes 1 x, 2 y"},
        {"t,u\r\n0.1,2\r\n0.2,3\r\n", "2 lignes, 2 colonnes, point décimal : colonnes 1 t, 2 u"},
        {"0.1\t2e-3\n0.2\t3\n", "2 lignes, 2 colonnes, point décimal, sans titre : colonnes 1, 2"},
        {"  1   2,5\n 10   3\n", "2 lignes, 2 colonnes, virgule décimale, sans titre : colonnes 1, 2"},
        {"a|b\n1|2\n3|4\n", "2 lignes, 2 colonnes, nombres entiers : colonnes 1 a, 2 b"},
        {"sep=;\r\n1;2\r\n3;4\r\n", "2 lignes, 2 colonnes, nombres entiers, sans titre : colonnes 1, 2"},
        {"Élève;Note\nAnne;12,5\nBruno;9\n",
         "2 lignes, 1 colonne, virgule décimale : colonne 2 Note ; en texte, laissée de côté : 1"},
        {"t;U\ns;V\n0;1\n1;2\n", "2 lignes, 2 colonnes, nombres entiers, 2 lignes de titres : colonnes 1 t, 2 U"},
        {"\"Nom, prénom\",\"Note\"\n\"Roy, Anne\",\"1,234.5\"\n\"Roy, Luc\",\"2\"\n",
         "2 lignes, 1 colonne, point décimal : colonne 2 Note ; en texte, laissée de côté : 1"},
        {"Tension (V)\n1,5\n2,5\n", "2 lignes, 1 colonne, virgule décimale : colonne 1 Tension (V)"},
        {"1,2,3\n4,5,6\n", "2 lignes, 3 colonnes, nombres entiers, sans titre : colonnes 1, 2, 3"},
        {"x,y\n1,2\n3,4\n", "2 lignes, 2 colonnes, nombres entiers : colonnes 1 x, 2 y"},
        {"1, 2\n3, 4\n", "2 lignes, 2 colonnes, nombres entiers, sans titre : colonnes 1, 2"},
        {"1;2;;\n3;4;;\n", "2 lignes, 2 colonnes, nombres entiers, sans titre : colonnes 1, 2"},
        {"Prix HT\n1 250,00\n980,50\n", "2 lignes, 1 colonne, virgule décimale : colonne 1 Prix HT"},
        {"12,50 €\n3,20 €\n", "2 lignes, 1 colonne, virgule décimale, sans titre ; en texte, laissée de côté : 2"},
        {"Mesures du 3 mai\n0\t0,1\n1\t0,3\n", "2 lignes, 2 colonnes, virgule décimale, 1 ligne de titres : colonnes 1, 2"},
        {"Date;Temp\n;degrés\n01/02;12,5\n02/02;13\n",
         "2 lignes, 1 colonne, virgule décimale, 2 lignes de titres : colonne 2 Temp ; en texte, laissée de côté : 1"},
        {"Date;Temp\njour;degrés\n01/02;12,5\n02/02;13\n",
         "2 lignes, 1 colonne, virgule décimale, 2 lignes de titres : colonne 2 Temp ; en texte, laissée de côté : 1"},
        {"temps (s) tension (V)\n0 0,1\n1 0,3\n", "2 lignes, 2 colonnes, virgule décimale, 1 ligne de titres : colonnes 1, 2"},
        {"x;y\n- 1,5;2\n+ 3;4\n", "2 lignes, 2 colonnes, virgule décimale : colonnes 1 x, 2 y"},
    });
    for (const Cas& c : cas) {
        CAPTURE(c.octets);
        CHECK(dit_de(c.octets) == c.attendu);
    }
}

TEST_CASE("a file that can't be read as data is refused with line and column") {
    const auto cas = std::to_array<Cas>({
        {"x;y\n1;2\n3;abs\n4;5\n", "ligne 3, colonne 2 : \"abs\" n'est pas un nombre"},
        {"x;y\n1,5;2\n3.5;4\n4,5;5\n", "ligne 3, colonne 1 : \"3.5\" n'est pas un nombre à virgule décimale"},
        {"1;2\n3;4;5\n6;7\n", "ligne 2 : 3 colonnes, 2 sur les autres lignes"},
        {"1;2;3\n\n3;4\n6;7;8\n", "ligne 3, colonne 3 : il manque un nombre"},
        {"x;y\n1;2\n3;\n5;6\n", "ligne 3, colonne 2 : il manque un nombre"},
        {"a\tb\n1,5\t\n2\t3\n", "ligne 2, colonne 2 : il manque un nombre"},
        {"Nom;Note\nZoé;Abs\nMax;12\nLéo;14,5\n", "ligne 2, colonne 2 : \"Abs\" n'est pas un nombre à virgule décimale"},
        {"Op;Montant\nA;(12,50)\nB;30,00\n", "ligne 2, colonne 2 : \"(12,50)\" n'est pas un nombre à virgule décimale"},
        {"12,5%\n20,1%\n", "ligne 1, colonne 1 : \"12,5%\" n'est pas un nombre"},
        {"Longueur\n12 cm;5 cm\n", "ligne 2, colonne 1 : \"12 cm\" n'est pas un nombre"},
        {"01/02/2024\n02/02/2024\n", "ligne 1, colonne 1 : \"01/02/2024\" n'est pas un nombre"},
        {"\"1;2\n3;4\n", "ligne 1, colonne 1 : guillemet non fermé"},
        {"1;2\n;4\n6;7\n", "ligne 2, colonne 1 : il manque un nombre"},
        {"a;b\nc;d\n", "aucun nombre dans ce fichier"},
        {"", "aucun nombre : le fichier est vide"},
        {"\r\n\r\n", "aucun nombre : le fichier est vide"},
        {"1;\"2\n3;4\n", "ligne 1, colonne 2 : guillemet non fermé"},
        {std::string_view("1;2\nab\0cd\n", 10), "ce n'est pas un texte : code 0, ligne 2, colonne 3"},
        {"PK\x03\x04rest", "c'est un classeur ou une archive : dans le tableur, enregistrez au format CSV"},
        {"%PDF-1.4\n", "c'est un document PDF, pas un fichier de données"},
        {"1;2\n\"3\"5;4\n", "ligne 2, colonne 1 : \"\"3\"5\" n'est pas un nombre"},
        {"1\n1e999\n2\n", "ligne 2, colonne 1 : \"1e999\" n'est pas un nombre"},
    });
    for (const Cas& c : cas) {
        CAPTURE(c.octets);
        CHECK(dit_de(c.octets) == c.attendu);
    }
    CHECK(dit_de(std::string(40'000'000, '1')) == "fichier trop grand : 40 millions d'octets, 4 au plus");
}

TEST_CASE("a file that no spreadsheet writes is refused at once") {
    std::string guillemets = "1;2\n\"";
    for (int i = 0; i < 1'900'000; ++i) guillemets += "\"\"";
    CHECK(dit_de(guillemets + "\";3\n") == "ligne 2, colonne 1 : \"" + std::string(30, '"') + "...\" n'est pas un nombre");
    std::string large;
    for (int i = 0; i < 500'000; ++i) large += "1 ";
    for (int i = 0; i < 1'000'000; ++i) large += "\n1";
    CHECK(dit_de(large) == "ligne 1 : 500000 colonnes, 1 sur les autres lignes");
}

TEST_CASE("a file is read in the coding that it was written in") {
    CHECK(dit_de("\xEF\xBB\xBF\xC3\x89tat;V\n1;2\n3;4\n") ==
          "2 lignes, 2 colonnes, nombres entiers : colonnes 1 État, 2 V");
    CHECK(dit_de("\xC9tat;V\n1;2\n3;4\n") == "2 lignes, 2 colonnes, nombres entiers : colonnes 1 État, 2 V");
    const std::u16string large = u"\uFEFFx\ty\r\n1,5\t2\r\n3\t4\r\n";
    std::string octets;
    for (const char16_t c : large) octets += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    CHECK(dit_de(octets) == "2 lignes, 2 colonnes, virgule décimale : colonnes 1 x, 2 y");
    CHECK(dit_de("1\xC2\xA0" "234,5\n2\xE2\x80\xAF" "000\n") == "2 lignes, 1 colonne, virgule décimale, sans titre");
}

TEST_CASE("a cell is a number as spreadsheets write it, or none") {
    const auto valeur = [](std::string_view c, char d) { return lis_cellule(c, d).value_or(-99); };
    CHECK(valeur("1 234,5", ',') == 1234.5);
    CHECK(valeur("1\xA0" "234\xA0" "567", ',') == 1234567);
    CHECK(valeur("1.234,5", ',') == 1234.5);
    CHECK(valeur("1,234.5", '.') == 1234.5);
    CHECK(valeur("1'234.5", '.') == 1234.5);
    CHECK(valeur("-,5", ',') == -0.5);
    CHECK(valeur("+5.", '.') == 5);
    CHECK(valeur("1,5E-3", ',') == 0.0015);
    for (const std::string_view c : {"", "-", "1.234", "12 34,5", "1 2345", "1e", "1e+", "1,2,3", "12h", "1..5", "1 €"})
        CHECK_MESSAGE(!lis_cellule(c, ',').has_value(), c);
}

TEST_CASE("data become the lines that a sheet reads") {
    CHECK(lignes_de("12,5\n14\n") == "STATX\r\n12.5,14\r\nFIN");
    CHECK(lignes_de("x;y\n1;2\n3;4\n5;6\n") == "! x, y\r\nSTATXY\r\n1,3,5\r\n2,4,6");
    CHECK(lignes_de("1;2;3\n4;5;6\n7;8;9\n") == "DEFMA\r\n1,2,3\r\n4,5,6\r\n7,8,9\r\nFIN");
    CHECK(lignes_de("Jour;kWh;m3\n1;2;3\n4;5;6\n") == "! Jour, kWh, m3\r\nDEFMA\r\n1,2,3\r\n4,5,6\r\nFIN");
    CHECK(lignes_de("note;effectif\n8;2\n12;5\n") == "STATX(8,2;12,5)");
    CHECK(lignes_de("1;2;3;4\n") == "STATX\r\n1,2,3,4\r\nFIN");
    CHECK(lignes_de("x;1;2;3\ny;4;5;6\n") == "STATXY\r\n1,2,3\r\n4,5,6");
    CHECK(lignes_de("n;a;b\nu;1;2\nv;3;4\n", "statx 3") == "STATX\r\n2,4\r\nFIN");
    CHECK(lignes_de("n;a;b\nu;1;2\nv;3;4\n", " defmc 3, 2 ") == "DEFMC\r\n2,1\r\n4,3\r\nFIN");
    CHECK(lignes_de("1;2;3\n4;5;6\n7;8;9\n", "STATXY") == "refus : STATXY prend deux colonnes : STATXY 1 2");
    CHECK(lignes_de("1;2\n3;4\n", "STATX 1 3") == "refus : la colonne 3 n'est pas une colonne de nombres");
    CHECK(lignes_de("8;-2\n3;4\n", "STATX 1 2") == "refus : un effectif est négatif");
    for (const std::string_view forme : {"STATX deux", "STATXY 1 b", "STATX 99999999999999999999", "DEFMA 1 -2"})
        CHECK_MESSAGE(lignes_de("1;2\n3;4\n", forme).starts_with("refus : forme inconnue"), forme);
    CHECK(lignes_de("1\n", "DEFMK") ==
          "refus : forme inconnue : tapez STATX, STATXY, ou DEFM et une lettre de A à J, puis des numéros de colonnes");
    std::string beaucoup;
    for (int i = 0; i < 25; ++i) beaucoup += "1\n";
    CHECK(lignes_de(beaucoup) ==
          "STATX\r\n1,1,1,1,1,1,1,1,1,1\r\n1,1,1,1,1,1,1,1,1,1\r\n1,1,1,1,1\r\nFIN");
}

TEST_CASE("a heading that would mean something to the calculation becomes no comment") {
    CHECK(lignes_de("Finale\n1\n2\n") == "STATX\r\n1,2\r\nFIN");
    CHECK(lignes_de("Not\xE9\re\n1\n2\n") == "STATX\r\n1,2\r\nFIN");
    CHECK(lignes_de("Note\n1\n2\n") == "! Note\r\nSTATX\r\n1,2\r\nFIN");
}

TEST_CASE("a matrix takes a letter that the sheet doesn't use") {
    std::string refus;
    const auto donnees = lis_donnees("1;2;3\n4;5;6\n7;8;9\n", refus);
    REQUIRE(donnees);
    CHECK(forme_proposee(*donnees, "defma\r\n1\r\nFIN\r\nMB=MA*2") == "DEFMC");
}

TEST_CASE("lines go below the line of the cursor and its block of results") {
    const auto place = [](std::string_view feuille, std::size_t curseur) {
        const auto insertion = insere_lignes(feuille, curseur, "STATX\r\n1\r\nFIN");
        REQUIRE(insertion);
        CHECK(insertion->derniere == insertion->ligne + 2);
        CHECK(std::string_view(insertion->texte).substr(insertion->position).starts_with("STATX\r\n1\r\nFIN"));
        return insertion->texte;
    };
    const std::string bloc = "STATX\r\n1\r\nFIN";
    CHECK(place("", 0) == bloc + "\r\n");
    CHECK(place("2+3", 1) == "2+3\r\n" + bloc + "\r\n");
    CHECK(place("2+3\r\n", 5) == "2+3\r\n" + bloc + "\r\n");
    CHECK(place("2+3\r\n4", 1) == "2+3\r\n" + bloc + "\r\n4");
    CHECK(place("2+3\r\n\r\n4", 5) == "2+3\r\n\r\n" + bloc + "\r\n4");
    const std::string table = "INCX(0,1,2)\r\n2X\r\nf(0) = 0\r\nf(1) = 2";
    CHECK(place(table + "\r\n5", 14) == table + "\r\n" + bloc + "\r\n5");
    CHECK(place(table, 20) == table + "\r\n" + bloc + "\r\n");
    std::string longue;
    for (int i = 0; i < 32000; ++i) longue += "5\r\n";   // as the rows of a matrix in a column look, which never ends
    CHECK(place(longue, longue.size()) == longue + bloc + "\r\n");
    longue.clear();
    for (int i = 0; i < 32765; ++i) longue += "\r\n";
    CHECK_FALSE(insere_lignes(longue, 0, bloc).has_value());
}

TEST_CASE("the longest list that is accepted is one that the sheet calculates") {
    installe_port_memoire();
    reinitialise_calcul();
    std::string refus;
    for (const std::string_view forme : {"STATX", "STATXY", "STATX 1 2"}) {
        const auto lignes = [&](std::size_t n) {
            std::string octets;
            for (std::size_t i = 0; i < n; ++i) octets += forme == "STATX" ? "1.5\n" : "1.5;2\n";
            const auto donnees = lis_donnees(octets, refus);
            REQUIRE(donnees);
            return lignes_de_feuille(*donnees, forme, refus);
        };
        std::size_t acceptees = 1, refusees = 9000;
        while (refusees - acceptees > 1) {
            const std::size_t milieu = (acceptees + refusees) / 2;
            (lignes(milieu) ? acceptees : refusees) = milieu;
        }
        CAPTURE(forme);
        CHECK_FALSE(lignes(acceptees + 1));
        CHECK(vers_utf8(refus).ends_with(": un calcul a 32767 caractères au plus"));
        const Rapport rapport = rapport_de(*lignes(acceptees), false);
        REQUIRE(rapport.lignes.size() == 1);
        CHECK_FALSE(rapport.lignes[0].erreur);
        CHECK(rapport.lignes[0].donnees.groupes.size() == acceptees);
    }
}
