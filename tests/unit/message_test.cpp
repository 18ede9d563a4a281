// The message line: every call changes the label.
#include "platform/message.hpp"

#include <doctest/doctest.h>

#include <string>

#include "shell/help_mode.hpp"
#include "unit/helpers.hpp"

TEST_CASE("message: the same words alternate between two forms") {
    for (int i = 0; i < 4; ++i) dit("Entier");
    CHECK(messages() == Textes{"Entier", " Entier  ", "Entier", " Entier  "});
}

TEST_CASE("message: blanks at the ends go, unless it is a repeat") {
    dit("  a b  ");
    dit("a b ");
    dit("c");
    dit("a b");
    CHECK(messages() == Textes{"a b", " a b  ", "c", "a b"});
}

TEST_CASE("message: an empty text clears the label, a second one shows three blanks") {
    dit("x");
    dit("");
    dit("");
    dit("   ");
    dit("");
    CHECK(messages() == Textes{"x", "", "   ", "", "   "});
}

TEST_CASE("message: the very first empty text changes the label too") {
    dit("");
    dit("");
    CHECK(messages() == Textes{"   ", ""});
}

TEST_CASE("message: the caller gets its text back as displayed") {
    std::string texte = "  calcul ";
    message(texte);
    CHECK(texte == "calcul");
    message(texte);
    CHECK(texte == " calcul  ");
    message(texte);
    CHECK(texte == "calcul");
}

TEST_CASE("message: no two labels in a row are the same") {
    for (const char* texte : {"a", "a", "a", "", "", "", " ", "b", "b ", " b", "b", "c"})
        dit(texte);
    const Textes dits = messages();
    for (std::size_t i = 1; i < dits.size(); ++i) CHECK(dits[i] != dits[i - 1]);
    CHECK(ligne_message.LblMessage == memoire.messages.back());
    CHECK(ligne_message.dernier_message == memoire.messages.back());
}

TEST_CASE("message: key help says the command's words and notes that it did") {
    CHECK_FALSE(annonce_mots(kMotsCalcul));
    CHECK(messages().empty());
    aide.aide_touche = true;
    CHECK(annonce_mots(kMotsCalcul));
    CHECK_FALSE(annonce_mots(""));
    CHECK(aide.aide_touche_traitee);
    CHECK(messages() == Textes{"calcul de la feuille"});
}
