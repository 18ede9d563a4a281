// Which texts of an event a screen reader is told.
#include "shell/announcements.hpp"

#include <doctest/doctest.h>

#include "base/codepage.hpp"
#include "shell/calculation.hpp"
#include "shell/colours.hpp"
#include "shell/commands.hpp"
#include "shell/events.hpp"
#include "shell/window.hpp"
#include "unit/helpers.hpp"

namespace {

struct Cas {
    const char* nom;
    Textes messages;     // of one event, as displayed
    Lecture lecture;
    Textes dites;
};

const Lecture kRien{"A=3 = 3", "", ""};
const Lecture kRelit{"A=3 = 3", "A=3 = 3", ""};
const Lecture kVide{"", "", ""};

const Cas kCas[] = {
    {"nothing", {}, kRien, {}},
    {"one message", {"Entier"}, kRien, {"Entier"}},
    {"two messages", {"Entier", "A=3 = 3"}, kRien, {"Entier", "A=3 = 3"}},
    {"of three the last two", {"a", "b", "c"}, kRien, {"b", "c"}},
    {"a failure that the line repeats", {"argument négatif", "SQRT(-1) = argument négatif"}, kRien,
     {"SQRT(-1) = argument négatif"}},
    {"what gives way leaves its place to another",
     {"Entier", "argument négatif", "SQRT(-1) = argument négatif"}, kRien,
     {"Entier", "SQRT(-1) = argument négatif"}},
    {"two failures of the same kind", {"division par zéro", " division par zéro  ", "A=3 = 3"}, kRien,
     {" division par zéro  ", "A=3 = 3"}},
    {"a message twice, the second time with its blanks", {"x", " x  "}, kRien, {" x  "}},
    {"the end of a word is no repetition", {"tier", "Entier"}, kRien, {"tier", "Entier"}},
    {"words with an accent are whole too", {"e", "é", "ée"}, kRien, {"é", "ée"}},
    {"what the next begins with stays", {"A", "A=3"}, kRien, {"A", "A=3"}},
    {"the line that is about to be read", {"A=3 = 3"}, kRelit, {}},
    {"the same line as a repeat", {" A=3 = 3  "}, kRelit, {}},
    {"another line than the one that is read", {"B=4"}, kRelit, {"B=4"}},
    {"what was set, then the line that is read", {"Radian", "A=3 = 3"}, kRelit, {"Radian"}},
    {"an empty line", {""}, kVide, {"ligne vide"}},
    {"an empty line, repeated", {"   "}, kVide, {"ligne vide"}},
    {"an empty line that gets the focus isn't read", {""}, Lecture{"", "", ""}, {"ligne vide"}},
    {"no result on a line with words", {""}, kRien, {}},
    {"an empty message in front of another", {"", "x"}, kVide, {"x"}},
    {"the name that the new title ends with", {"SANSTITRE.VXT"}, {"", "", "VOXTAB SANSTITRE.VXT"}, {}},
    {"the name behind a path", {"essai.VXT"}, {"", "", "VOXTAB /home/essai.VXT"}, {}},
    {"another message beside a new title", {"enregistrer"}, {"", "", "VOXTAB essai.VXT"}, {"enregistrer"}},
};

}  // namespace

TEST_CASE("announcements: what is told of the messages of one event") {
    for (const Cas& cas : kCas) {
        CAPTURE(std::string(cas.nom));
        for (const std::string& message : cas.messages) note_annonce(message);
        CHECK(prend_annonces(cas.lecture) == cas.dites);
        CHECK(prend_annonces(cas.lecture).empty());
    }
}

TEST_CASE("announcements: a flood keeps no more than two texts") {
    for (int i = 0; i < 30'000; ++i) note_annonce("ligne " + std::to_string(i));
    CHECK(annonces.attente == Textes{"ligne 29998", "ligne 29999"});
}

TEST_CASE("announcements: leaving the angle view tells the unit that is set") {
    evenement_chargement();
    evenement_menu("mnuAngleItem");
    evenement_clic("OptionRadian");
    evenement_caractere("OptionRadian", 27);
    CHECK(en_utf8(memoire.annonces) == Textes{"Radian"});
}

TEST_CASE("announcements: the colours that are set are told, the same colour twice isn't") {
    evenement_chargement();
    for (const auto& [premiere, seconde] : {std::pair{15, 1}, std::pair{1, 1}}) {
        evenement_menu("mnuCouleurEcran");
        fenetre.index_liste = premiere;
        evenement_caractere("Liste", 13);
        fenetre.index_liste = seconde;
        evenement_caractere("Liste", 13);
    }
    CHECK(en_utf8(memoire.annonces) == Textes{"caractères Blanc, arrière plan Noir"});
}

TEST_CASE("announcements: a view that can't be written in says so") {
    evenement_chargement();
    evenement_menu("mnuApropos");
    CHECK(en_utf8(memoire.annonces) == Textes{"lecture seule"});
    CHECK(messages().back() == "VOXTAB Version 2.02");
}

TEST_CASE("announcements: the result of a line is told where the message line has no words for it") {
    evenement_chargement();
    memoire.texte = "1 = 1\r\nA\r\n\r\n5";
    execute_commande("MnuParleResultatItem");   // no calculation yet: what stands there
    CHECK(en_utf8(memoire.annonces) == Textes{"= 1"});
    memoire.sel_start = 7;
    execute_commande("MnuParleResultatItem");
    CHECK(en_utf8(memoire.annonces) == Textes{"= 1", "pas de résultat"});
    CHECK(messages().empty());
    memoire.texte = "1\r\n! a\r\n\r\n5";
    memoire.sel_start = 0;
    execute_commande("mnuCalculItem");
    memoire.annonces.clear();
    memoire.sel_start = 7;
    execute_commande("MnuParleResultatItem");
    CHECK(messages().back().empty());
    CHECK(en_utf8(memoire.annonces) == Textes{"pas de résultat"});
    memoire.sel_start = 14;                      // an empty line is told as such
    execute_commande("MnuParleResultatItem");
    CHECK(memoire.annonces.size() == 1);
}

TEST_CASE("announcements: a command that leaves a view tells that the sheet is there again") {
    evenement_chargement();
    evenement_menu("mnuApropos");
    evenement_menu("mnuErreurSuivanteItem");
    CHECK(messages().back() == "pas de ligne en erreur plus bas");
    CHECK(en_utf8(memoire.annonces) == Textes{"lecture seule", "retour à la feuille"});
    evenement_menu("mnuErreurSuivanteItem");    // in the sheet itself it isn't
    CHECK(memoire.annonces.size() == 2);
}

TEST_CASE("announcements: a sheet saved under a new name is told, a cancelled dialog isn't") {
    evenement_chargement();
    memoire.texte = "5";
    memoire.reponses = {std::nullopt, "C:\\B.VXT"};
    evenement_menu("mnuEnregistrerSousItem");
    CHECK(memoire.annonces.empty());
    evenement_menu("mnuEnregistrerSousItem");
    CHECK(en_utf8(memoire.annonces) == Textes{"enregistrer"});
    CHECK(messages().empty());
}

TEST_CASE("announcements: an empty sheet is told to who calculates it") {
    evenement_chargement();
    execute_commande("mnuCalculItem");
    execute_commande("mnuCalculColonneItem");
    CHECK(en_utf8(memoire.annonces) == Textes{"feuille vide", "feuille vide"});
    CHECK(messages().empty());
}
