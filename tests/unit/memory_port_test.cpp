// The in-memory port, on which every headless run stands: text, selection, messages, boxes, answers.
#include <doctest/doctest.h>

#include <string>

#include "platform/platform.hpp"
#include "support/memory.hpp"
#include "unit/helpers.hpp"

TEST_CASE("memory port: a new text puts the cursor at its start") {
    port.texte.pose_texte("A=1\r\nB=2");
    port.texte.pose_selection(3, 2);
    CHECK(port.texte.sel_start() == 3);
    CHECK(port.texte.sel_length() == 2);
    port.texte.pose_texte("C");
    CHECK(port.texte.texte() == "C");
    CHECK(port.texte.sel_start() == 0);
    CHECK(port.texte.sel_length() == 0);
}

TEST_CASE("memory port: the selection stays inside the text") {
    struct Rangee {
        std::size_t debut, longueur, debut_pris, longueur_prise;
    };
    port.texte.pose_texte("12345");
    const std::size_t enorme = static_cast<std::size_t>(-1);
    for (const Rangee& r :
         {Rangee{0, 5, 0, 5}, Rangee{5, 1, 5, 0}, Rangee{9, 9, 5, 0}, Rangee{2, 9, 2, 3},
          Rangee{enorme, enorme, 5, 0}, Rangee{1, enorme, 1, 4}}) {
        port.texte.pose_selection(r.debut, r.longueur);
        CHECK(port.texte.sel_start() == r.debut_pris);
        CHECK(port.texte.sel_length() == r.longueur_prise);
    }
}

TEST_CASE("memory port: messages, boxes and beeps are kept in order") {
    port.message.etiquette("un");
    port.boites.boite("boite 1");
    port.message.etiquette("deux");
    port.boites.bip();
    port.boites.boite("boite 2");
    port.boites.bip();
    CHECK(messages() == Textes{"un", "deux"});
    CHECK(boites() == Textes{"boite 1", "boite 2"});
    CHECK(memoire.bips == 2);
}

TEST_CASE("memory port: entry boxes take the prepared answers, then Cancel") {
    memoire.reponses = {"12", std::nullopt, ""};
    std::string reponse = "before";
    CHECK(port.boites.saisie("Recherche", "ancien", reponse));
    CHECK(reponse == "12");
    CHECK_FALSE(port.boites.saisie("Recherche", "12", reponse));
    CHECK(reponse == "12");
    CHECK(port.boites.saisie("Remplace", "", reponse));
    CHECK(reponse.empty());
    CHECK_FALSE(port.boites.saisie("Remplace", "x", reponse));
    REQUIRE(memoire.saisies.size() == 4);
    CHECK(memoire.saisies[0].invite == "Recherche");
    CHECK(memoire.saisies[0].propose == "ancien");
    CHECK(memoire.saisies[3].propose == "x");
}

TEST_CASE("memory port: installing it again forgets everything") {
    port.texte.pose_texte("A");
    port.boites.boite("b");
    port.message.etiquette("m");
    port.boites.bip();
    memoire.reponses.emplace_back("r");
    memoire.interrompt = true;
    installe_port_memoire();
    CHECK(port.texte.texte().empty());
    CHECK(memoire.boites.empty());
    CHECK(memoire.messages.empty());
    CHECK(memoire.reponses.empty());
    CHECK(memoire.bips == 0);
    CHECK_FALSE(port.systeme.interrompu());
}

TEST_CASE("memory port: the user's giving up is passed on") {
    CHECK_FALSE(port.systeme.interrompu());
    memoire.interrompt = true;
    CHECK(port.systeme.interrompu());
}

TEST_CASE("memory port: the empty port does nothing and answers nothing") {
    installe_port_vide();
    port.texte.pose_texte("A");
    port.texte.pose_selection(1, 1);
    CHECK(port.texte.texte().empty());
    CHECK(port.texte.sel_start() == 0);
    port.boites.boite("b");
    port.boites.bip();
    port.message.etiquette("m");
    std::string reponse = "before";
    CHECK_FALSE(port.boites.saisie("i", "p", reponse));
    CHECK(reponse == "before");
    CHECK(memoire.boites.empty());
    CHECK(memoire.messages.empty());
    CHECK(reste_pile());
}
