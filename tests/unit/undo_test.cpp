// Undo and redo: what is kept stays within its bound, the last change is kept whatever its size,
// random changes go back and forth to the byte, and the two keys are taken with exactly their
// modifiers.
#include "documents/undo.hpp"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "helpers.hpp"
#include "one_sheet.hpp"
#include "shell/events.hpp"
#include "shell/commands.hpp"
#include "state/pass_result.hpp"

namespace {

constexpr FrappeTouche kAnnule{'Z', false, true, false};
constexpr FrappeTouche kRetablit{'Z', true, true, false};

// The user has changed the text in some way of his own.
void change_texte(std::string texte, std::size_t curseur) {
    evenement_avant_changement();
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(curseur, 0);
    evenement_texte_change();
}

// Bytes that the list of the current sheet really holds.
std::size_t octets_gardes() {
    std::size_t n = 0;
    const auto ajoute = [&](const auto& liste) {
        for (const Changement& c : liste) n += sizeof c + c.enleve.size() + c.mis.size();
    };
    ajoute(historique.feuilles[documents.identite(documents.document_courant)].faits);
    ajoute(historique.feuilles[documents.identite(documents.document_courant)].defaits);
    return n;
}

// As many lines as a sheet can have; the first and the last change with `n` when they are
// calculated.
std::string grande_feuille(int n) {
    static const std::string milieu = [] {
        std::string lignes;
        for (int ligne = 2; ligne < 32'767; ++ligne) lignes += "\r\n! ligne";
        return lignes;
    }();
    return "A=" + std::to_string(n) + milieu + "\r\nA*2";
}

}  // namespace

// A thousand, and a hundred under the sanitizers; a dozen reach the bound.
TEST_CASE("undo: a thousand calculations of the largest sheet stay within the bound") {
    constexpr int kTours = VOXTAB_UNDO_ROUNDS;
    demarre_avec_feuille();
    for (int n = 1; n <= kTours; ++n) {
        // Each of the two changes is as wide as the text.
        change_texte(grande_feuille(n), 0);
        evenement_menu("mnuCalculItem");
        const HistoireFeuille& h = historique.feuilles[documents.identite(1)];
        REQUIRE(octets_gardes() == h.octets);
        REQUIRE(h.octets <= kOctetsHistorique);
        REQUIRE(h.faits.size() > 1);
    }
    REQUIRE(historique.feuilles[documents.identite(1)].faits.size() < kTours / 2);   // the first ones are gone
    REQUIRE(memoire.texte.ends_with("A*2 = " + std::to_string(2 * kTours)));
    CHECK(lignes_de_la_feuille() == 32'767);
    CHECK(evenement_enfonce("txt", kAnnule));
    CHECK(memoire.texte == grande_feuille(kTours));
    CHECK(evenement_enfonce("txt", kAnnule));
    CHECK(memoire.texte.ends_with("A*2 = " + std::to_string(2 * kTours - 2)));
}

TEST_CASE("undo: the last change is kept even when it is wider than the bound") {
    demarre_avec_feuille();
    const std::string geante(kOctetsHistorique + 1, 'x');
    change_texte(geante, 3);
    change_texte("A=1", 1);
    evenement_enfonce("txt", kAnnule);
    CHECK(memoire.texte == geante);
    CHECK(memoire.sel_start == 3);
    memoire.messages.clear();
    evenement_enfonce("txt", kAnnule);
    CHECK(messages() == Textes{"rien à annuler"});
    CHECK(memoire.texte == geante);
}

TEST_CASE("undo: random changes go back and forth to the byte") {
    std::mt19937 hasard(20260101);
    const auto tire = [&](std::size_t n) { return hasard() % n; };
    demarre_avec_feuille();
    std::vector<std::string> textes{memoire.texte};
    for (int n = 0; n < 300; ++n) {
        std::string texte = memoire.texte;
        const std::size_t de = tire(texte.size() + 1);
        texte.replace(de, tire(4), std::string(2 + tire(3), static_cast<char>('a' + tire(3))));
        if (texte == textes.back()) continue;
        change_texte(texte, de);
        textes.push_back(texte);
    }
    REQUIRE(textes.size() > 250);
    std::size_t reculs = 0;
    for (std::size_t i = textes.size() - 1; i > 0; --i, ++reculs) {
        evenement_enfonce("txt", kAnnule);
        if (memoire.texte != textes[i - 1]) break;
    }
    CHECK(reculs == textes.size() - 1);
    for (std::size_t i = 1; i < textes.size(); ++i) {
        evenement_enfonce("txt", kRetablit);
        REQUIRE(memoire.texte == textes[i]);
    }
    CHECK(octets_gardes() == historique.feuilles[documents.identite(1)].octets);
}

TEST_CASE("undo: each of the two keys is taken with its modifiers alone, and in the text alone") {
    for (int bits = 0; bits < 8; ++bits) {
        const FrappeTouche f{'Z', (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        CAPTURE(bits);
        demarre_avec_feuille();
        CHECK(evenement_enfonce("txt", f) == (f.ctrl && !f.alt));
        CHECK(memoire.messages.size() == (f.ctrl && !f.alt ? 1u : 0u));
        demarre_avec_feuille();
        CHECK_FALSE(evenement_enfonce("CmdQuitter", f));
        CHECK(memoire.messages.empty());
    }
    demarre_avec_feuille();
    CHECK_FALSE(evenement_enfonce("txt", {'Y', false, true, false}));
    CHECK(item_du_raccourci({'Y', false, true, false}) == "mnuNumeroLigneItem");
    CHECK(item_du_raccourci(kAnnule).empty());
    CHECK(item_du_raccourci(kRetablit).empty());
}

TEST_CASE("undo: a paste is a step of its own, with the selection that it replaced") {
    demarre_avec_feuille();
    const std::string avant = memoire.texte;
    port.texte.pose_selection(0, 3);
    change_texte("C=12" + avant.substr(3), 4);
    change_texte("C=123" + avant.substr(3), 5);
    evenement_enfonce("txt", kAnnule);
    CHECK(memoire.texte == "C=12" + avant.substr(3));
    CHECK(memoire.sel_start == 4);
    memoire.messages.clear();
    evenement_enfonce("txt", kAnnule);
    CHECK(memoire.texte == avant);
    CHECK(memoire.sel_start == 0);
    CHECK(memoire.sel_length == 3);
    CHECK(messages() == Textes{"A=3"});
}

TEST_CASE("undo: a cursor between the two characters of a line end is told as the line below") {
    demarre_avec_feuille();
    port.texte.pose_selection(4, 0);
    evenement_menu("mnuCalculItem");
    memoire.messages.clear();
    evenement_enfonce("txt", kAnnule);
    CHECK(memoire.sel_start == 4);
    CHECK(messages() == Textes{"B=A*2+A"});
}

TEST_CASE("undo: a character over a selection is one change, though the toolkit makes it in two") {
    demarre_avec_feuille();
    const std::string avant = memoire.texte;
    port.texte.pose_selection(0, 3);
    evenement_enfonce("txt", {'9', false, false, false});
    port.texte.pose_texte(avant.substr(3));
    evenement_texte_change();
    evenement_caractere("txt", '9');
    port.texte.pose_texte("9" + avant.substr(3));
    port.texte.pose_selection(1, 0);
    evenement_texte_change();
    evenement_touche("txt", {'9', false, false, false});
    evenement_enfonce("txt", kAnnule);
    CHECK(memoire.texte == avant);
    CHECK(memoire.sel_length == 3);
}
