// The settings file byte by byte: its 22 records against their offsets, and files that are no
// settings at all. The bytes are written and read here by their places, without the core's
// procedures.
#include <doctest/doctest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "documents/open_documents.hpp"
#include "editing/search.hpp"
#include "helpers.hpp"
#include "settings/settings.hpp"
#include "shell/events.hpp"
#include "shell/menus.hpp"
#include "shell/window.hpp"
#include "state/modes.hpp"
#include "support/program.hpp"
#include "support/snapshot.hpp"

namespace {

constexpr std::size_t kRecord = 267;
constexpr std::size_t kFichier = 5874;
const std::string kIni = "C:\\VOXTAB\\VOXTAB.INI";

// A record as its bytes tell it: the text without its blanks, and the three numbers.
struct Record {
    std::string nom;
    std::array<std::int64_t, 3> champs{};
    bool operator==(const Record&) const = default;
};

// The number whose four bytes begin at `place`, the lowest byte first.
std::int64_t nombre_a(const std::string& octets, std::size_t place) {
    std::int64_t n = 0;
    for (std::size_t i = 0; i < 4; ++i)
        n += static_cast<std::int64_t>(static_cast<unsigned char>(octets[place + i])) << (8 * i);
    return n >= INT64_C(0x80000000) ? n - INT64_C(0x100000000) : n;
}

// Record number `rang`, from 1.
Record record_a(const std::string& octets, std::size_t rang) {
    const std::size_t debut = (rang - 1) * kRecord;
    return {std::string(sans_blancs(octets.substr(debut, 255))),
            {nombre_a(octets, debut + 255), nombre_a(octets, debut + 259),
             nombre_a(octets, debut + 263)}};
}

// The bytes of a record: the text padded with blanks, then the numbers.
std::string octets_de(const Record& r) {
    std::string octets = r.nom + std::string(255 - r.nom.size(), ' ');
    for (const std::int64_t champ : r.champs)
        for (int i = 0; i < 4; ++i) octets += static_cast<char>(champ >> (8 * i) & 0xFF);
    return octets;
}

std::string octets_de(const std::vector<Record>& records) {
    std::string octets;
    for (const Record& r : records) octets += octets_de(r);
    return octets;
}

// Records with other numbers and texts in every place, all of them allowed.
std::vector<Record> records_distincts() {
    std::vector<Record> tous;
    for (int i = 1; i <= 15; ++i)
        tous.push_back({"C:\\dossier\\feuille" + std::to_string(i) + ".VXT",
                        {100 * i, 100 * i + 1, -70'000 * i}});
    tous.push_back({cp("CHERCHÉ"), {2, 7, 3}});
    tous.push_back({"dix-sept", {3, 0, 1701}});
    tous.push_back({"REMPLACE", {1, 1, 1801}});
    tous.push_back({"Courier New", {4, 11, 1901}});
    tous.push_back({"12.5", {2001, 2002, 2003}});
    tous.push_back({"Times", {2101, 2102, 2103}});
    tous.push_back({"9.75", {2201, INT32_MIN, INT32_MAX}});
    return tous;
}

void demarre_avec(const std::string& octets) {
    programme_neuf();
    pose_fichier(kIni, octets);
    evenement_chargement();
}

void quitte() { evenement_menu("mnuQuitterItem"); }

// The sheets that the user has beside the program.
const std::vector<std::pair<std::string, std::string>> kFeuilles{
    {"C:\\A.VXT", "A=1\r\n"}, {"C:\\dossier\\feuille1.VXT", "B=2\r\n"}, {"C:\\VOXTAB\\x", "C=3"}};

void pose_feuilles() {
    for (const auto& [chemin, texte] : kFeuilles) pose_fichier(chemin, texte);
}

void verifie_feuilles() {
    for (const auto& feuille : kFeuilles) {
        const auto& chemin = feuille.first;
        CAPTURE(chemin);
        CHECK(lit_memoire(chemin) == std::optional(feuille.second));
    }
}

// A start on those bytes, a calculation, a sheet opened, the end, and a second start.
void verifie_vie(const std::string& octets, const std::string& commande) {
    programme_neuf();
    pose_feuilles();
    pose_fichier(kIni, octets);
    memoire.ligne_commande = commande;
    evenement_chargement();
    CHECK_FALSE(fenetre.fermee);
    CHECK(lit_memoire(kIni) == std::optional(octets));
    // Whatever the number modes have become, the formula stays; with the usual ones it is right.
    pose_feuille("2/3");
    evenement_touche("txt", {'C', false, false, true});
    CHECK(memoire.texte.starts_with("2/3"));
    modes = Modes{};
    pose_feuille("6*7");
    evenement_touche("txt", {'C', false, false, true});
    CHECK(memoire.texte == "6*7 = 42");
    memoire.reponses = {"C:\\A.VXT", "non"};
    evenement_menu("mnuOuvrirItem");
    verifie_feuilles();
    quitte();
    CHECK(fenetre.fermee);
    CHECK(lit_memoire(kIni)->size() == kFichier);
    verifie_feuilles();
    reinitialise_tout();
    evenement_chargement();
    CHECK_FALSE(fenetre.fermee);
    verifie_feuilles();
}

// Random bytes; those of a kind that settings hold, or all.
std::string hasard(std::mt19937& tirage, std::size_t taille, bool tous) {
    using namespace std::string_view_literals;
    constexpr std::string_view kSignes = "\0\1\2 .:\\AZ\xFF\x7F\x80\r\n\"%"sv;
    std::string octets;
    for (std::size_t i = 0; i < taille; ++i) {
        const auto n = static_cast<std::size_t>(tirage());
        octets += tous ? static_cast<char>(n & 0xFF) : kSignes[n % kSignes.size()];
    }
    return octets;
}

}  // namespace

TEST_CASE("settings: each field of each record is read from its place") {
    const std::vector<Record> records = records_distincts();
    const std::string octets = octets_de(records);
    REQUIRE(octets.size() == kFichier);
    demarre_avec(octets);
    // The untitled sheet of the start has pushed the list down by one.
    for (std::size_t rang = 1; rang <= 22; ++rang) {
        if (rang == 15) continue;
        CAPTURE(rang);
        const article& ligne = reglages.table_ini(static_cast<int>(rang < 15 ? rang + 1 : rang));
        CHECK(Record{ligne.nom, {ligne.champ1, ligne.champ2, ligne.champ3}} == records[rang - 1]);
    }
    CHECK(reglages.table_ini(1).nom == "SANSTITRE.VXT");
}

TEST_CASE("settings: what the records say is what the program does") {
    demarre_avec(octets_de(records_distincts()));
    CHECK(vers_utf8(recherche.chaine_recherche) == "CHERCHÉ");
    CHECK(recherche.chaine_remplacement == "");
    CHECK(modes.mode_nombre == 2);
    CHECK(modes.nombre_decimal == 7);
    CHECK(modes.mode_affichage == 3);
    CHECK(modes.unite_angle == 3);
    CHECK_FALSE(etat_item("mnuDerniereFeuilleItem")->coche);
    CHECK(fenetre.txt.police.nom == "Courier New");
    CHECK(fenetre.txt.police.taille == 12.5);
    CHECK(fenetre.txt_couleur == 4);
    CHECK(fenetre.txt_fond == 11);
    CHECK(etat_recent(2)->libelle == "2 C:\\dossier\\feuille1.VXT");
}

TEST_CASE("settings: each record is written at its place, and padded with blanks") {
    std::vector<Record> records = records_distincts();
    demarre_avec(octets_de(records));
    quitte();
    const std::string ecrit = lit_memoire(kIni).value_or("");
    REQUIRE(ecrit.size() == kFichier);
    // The fifteenth sheet was pushed off the list, and the replacement text doesn't come back.
    records[14] = {"SANSTITRE.VXT", {1, 0, 1}};
    records[17].nom = "";
    for (std::size_t rang = 1; rang <= 22; ++rang) {
        CAPTURE(rang);
        CHECK(record_a(ecrit, rang) == records[rang - 1]);
    }
    CHECK(ecrit == octets_de(records));
}

TEST_CASE("settings: each option reaches its field of the file") {
    programme_neuf();
    evenement_chargement();
    memoire.reponses = {"12", cp("cherché mot"), "oui", "Arial;9.75", "oui", "Times;20"};
    for (const char* nom :
         {"mnuNombreDecimalItem", "mnuRechercherDebutItem", "mnuPoliceEcran", "mnuPoliceImprimante",
          "mnuEntierItem", "mnuHexaItem", "mnuDerniereFeuilleItem", "mnuColonneMatrice",
          "mnuLigneStat", "mnuAngleItem"})
        evenement_menu(nom);
    evenement_clic("OptionGrade");
    evenement_clic("CmdAngle");
    evenement_menu("mnuCouleurEcran");
    for (const int ligne : {10, 16}) {
        fenetre.index_liste = ligne;
        evenement_clic("CmdVoxtab");
    }
    quitte();
    const std::string ecrit = lit_memoire(kIni).value_or("");
    REQUIRE(ecrit.size() == kFichier);
    CHECK(record_a(ecrit, 16) == Record{cp("CHERCHÉ MOT"), {2, 12, 1}});
    CHECK(record_a(ecrit, 17) == Record{"", {3, 1, 0}});
    CHECK(record_a(ecrit, 18) == Record{"", {1, 1, 0}});
    CHECK(record_a(ecrit, 19) == Record{"Arial", {12, 15, 0}});
    CHECK(record_a(ecrit, 20) == Record{"9.75", {0, 0, 0}});
    CHECK(record_a(ecrit, 21) == Record{"Times", {0, 0, 0}});
    CHECK(record_a(ecrit, 22) == Record{"20", {0, 0, 0}});
}

TEST_CASE("settings: a sheet's cursor and bookmark reach the fields of its row") {
    programme_neuf();
    pose_feuilles();
    memoire.ligne_commande = "C:\\A.VXT";
    evenement_chargement();
    port.texte.pose_selection(2, 1);
    evenement_menu("mnuPoseRepereItem");
    quitte();
    const std::string ecrit = lit_memoire(kIni).value_or("");
    REQUIRE(ecrit.size() == kFichier);
    const Record premier = record_a(ecrit, 1);
    CHECK(premier.nom == "C:\\A.VXT");
    CHECK(premier.champs[0] == 2);
    CHECK(premier.champs[1] == 1);
    CHECK(premier.champs[2] == reglages.table_ini(1).champ3);
    CHECK(premier.champs[2] != 1);
    for (std::size_t rang = 2; rang <= 15; ++rang)
        CHECK(record_a(ecrit, rang) == Record{"SANSTITRE.VXT", {1, 0, 1}});
}

TEST_CASE("settings: a name longer than its field is cut at 255") {
    programme_neuf();
    evenement_chargement();
    recherche.chaine_recherche = std::string(300, 'X');
    quitte();
    const std::string ecrit = lit_memoire(kIni).value_or("");
    REQUIRE(ecrit.size() == kFichier);
    CHECK(record_a(ecrit, 16) == Record{std::string(255, 'X'), {1, 2, 2}});
}

TEST_CASE("settings: a file of any length never crashes and leaves the sheets alone") {
    const std::string entier = octets_de(records_distincts());
    for (const std::size_t taille :
         {0u, 1u, 254u, 255u, 258u, 266u, 267u, 268u, 4005u, 4006u, 5607u, 5873u, 5874u}) {
        CAPTURE(taille);
        verifie_vie(entier.substr(0, taille), "");
    }
    for (const std::size_t plus : {1u, 267u, 100'000u}) {
        CAPTURE(plus);
        verifie_vie(entier + std::string(plus, 'Z'), "C:\\A.VXT");
    }
}

TEST_CASE("settings: random bytes never crash and leave the sheets alone") {
    for (unsigned graine = 1; graine <= 400; ++graine) {
        CAPTURE(graine);
        std::mt19937 tirage(graine);
        const std::size_t taille = graine % 4 == 0 ? tirage() % 8000 : kFichier;
        const std::string commande = graine % 3 == 0 ? "C:\\dossier\\feuille1.VXT" : "";
        verifie_vie(hasard(tirage, taille, graine % 2 == 0), commande);
    }
}

TEST_CASE("settings: single random bytes in good settings never crash") {
    for (unsigned graine = 1; graine <= 300; ++graine) {
        CAPTURE(graine);
        std::mt19937 tirage(graine);
        std::string octets = octets_de(records_distincts());
        for (int i = 0; i < 20; ++i)
            octets[tirage() % octets.size()] = static_cast<char>(tirage() & 0xFF);
        verifie_vie(octets, "");
    }
}

TEST_CASE("settings: a folder of that name gives the defaults and can't be written") {
    programme_neuf();
    pose_feuilles();
    pose_dossier(kIni);
    evenement_chargement();
    CHECK(boites() == Textes{});
    CHECK(reglages.table_ini(kLignePolice).nom == "Courier");
    CHECK(fenetre.txt_couleur == 15);
    pose_feuille("6*7");
    evenement_touche("txt", {'C', false, false, true});
    CHECK(memoire.texte == "6*7 = 42");
    memoire.reponses.assign(1, "non");
    quitte();
    CHECK(boites() == Textes{"75 75"});
    CHECK_FALSE(fenetre.fermee);
    CHECK(memoire.texte == "6*7 = 42");
    CHECK(dossier_memoire(kIni));
    verifie_feuilles();
    memoire.reponses.assign(1, "non");
    evenement_fermeture();
    CHECK(fenetre.fermee);
    verifie_feuilles();
}
