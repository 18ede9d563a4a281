// The messages that can be heard again.
#include "shell/heard.hpp"

#include <doctest/doctest.h>

#include <string>

#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/events.hpp"
#include "shell/window.hpp"
#include "unit/helpers.hpp"

namespace {

constexpr FrappeTouche kCtrlD{'D', false, true, false};

void presse_repeter() {
    evenement_pression("txt", kCtrlD);
    evenement_touche("txt", kCtrlD);
}

}  // namespace

TEST_CASE("heard: thirty messages are kept, the oldest goes") {
    for (int i = 1; i <= 40; ++i) {
        dit("message " + std::to_string(i));
        prend_entendus();
    }
    REQUIRE(entendus.messages.size() == kEntendusMaxi);
    CHECK(entendus.messages.front().texte == "message 11");
    CHECK(entendus.messages.back().texte == "message 40");
}

TEST_CASE("heard: an empty message is none, and blanks at the ends don't count") {
    dit("");
    prend_entendus();
    dit("x");
    prend_entendus();
    dit("x");
    prend_entendus();
    REQUIRE(entendus.messages.size() == 2);
    CHECK(entendus.messages.front().texte == "x");
    CHECK(entendus.messages.back().texte == "x");
}

TEST_CASE("heard: a box can be heard again in its place, and what was told before it too") {
    for (const char* texte : {"a", "b"}) dit(texte);
    port.boites.boite("7 7");
    for (const char* texte : {"c", "d", "e"}) dit(texte);
    prend_entendus();
    std::string tout;
    for (const Dit& d : entendus.messages) tout += d.texte + (d.boite ? "! " : " ");
    CHECK(tout == "a b 7 7! d e ");
}

TEST_CASE("heard: a key that is held goes back once") {
    dit("a");
    prend_entendus();
    dit("b");
    prend_entendus();
    evenement_pression("txt", kCtrlD);
    for (int i = 0; i < 5; ++i) CHECK(evenement_pression("txt", kCtrlD));
    CHECK(messages().back() == " b  ");
    evenement_touche("txt", kCtrlD);
    presse_repeter();
    CHECK(messages().back() == "a");
}

TEST_CASE("heard: from the thirtieth message there is no way further back") {
    for (int i = 1; i <= 35; ++i) {
        dit("message " + std::to_string(i));
        prend_entendus();
    }
    for (int i = 0; i < 30; ++i) presse_repeter();
    CHECK(messages().back() == "message 6");
    presse_repeter();
    CHECK(messages().back() == "pas de message plus ancien");
}
