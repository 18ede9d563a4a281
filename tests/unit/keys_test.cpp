// The keys of the text: every key with every combination of Maj, Ctrl and Alt is released in it,
// with and without key help, and compared with the key map written out here.
#include <doctest/doctest.h>

#include <array>
#include <string>
#include <vector>

#include "helpers.hpp"
#include "one_sheet.hpp"
#include "shell/commands.hpp"
#include "shell/events.hpp"
#include "shell/help_mode.hpp"

namespace {

// What must be down for a key of the map.
bool toujours(const FrappeTouche&) { return true; }
bool alt(const FrappeTouche& f) { return f.alt; }
bool ctrl(const FrappeTouche& f) { return f.ctrl; }
bool maj_et_ctrl(const FrappeTouche& f) { return f.maj && f.ctrl; }

enum class Sorte { rien, commande, marque, passee };

struct ToucheAttendue {
    int touche;
    bool (*avec)(const FrappeTouche&);
    Sorte sorte;
    const char* commande;  // that runs
    const char* mots;      // that it says in key help
};

// The key map; what isn't here does nothing.
constexpr std::array<ToucheAttendue, 11> kCarte{{
    {kToucheF1, alt, Sorte::commande, "AfficheFonction", "Liste des fonctions"},
    {kToucheGauche, alt, Sorte::commande, "chaineGAUCHE", "chaine à gauche"},
    {kToucheDroite, alt, Sorte::commande, "chainedroite", "chaine à droite"},
    {kToucheSuppr, toujours, Sorte::marque, "", ""},
    {kToucheEntree, ctrl, Sorte::commande, "calcul_colonne",
     "calcul de toutes les lignes en colonne"},
    {'C', alt, Sorte::commande, "recalcul", "calcul de la feuille"},
    {'R', alt, Sorte::commande, "mnuRechercherCurseurItem", "Rechercher depuis le curseur"},
    {'S', maj_et_ctrl, Sorte::commande, "enregistrersous", "enregistrer sous un autre nom"},
    {kToucheFin, toujours, Sorte::passee, "", ""},
    {kToucheMaj, toujours, Sorte::passee, "", ""},
    {kToucheCtrl, toujours, Sorte::passee, "", ""},
}};
constexpr ToucheAttendue kAutreTouche{0, toujours, Sorte::rien, "", ""};

const ToucheAttendue& attendue(const FrappeTouche& f) {
    for (const ToucheAttendue& ligne : kCarte)
        if (ligne.touche == f.touche && ligne.avec(f)) return ligne;
    return kAutreTouche;
}

// Every key that the program knows.
std::vector<int> toutes_touches() {
    std::vector<int> touches{kToucheEchap, kToucheEntree};
    for (int c = 'A'; c <= 'Z'; ++c) touches.push_back(c);
    for (int c = '0'; c <= '9'; ++c) touches.push_back(c);
    for (int c = kToucheF1; c <= kToucheF12; ++c) touches.push_back(c);
    for (int c = kToucheGauche; c <= kToucheAutre; ++c) touches.push_back(c);
    return touches;
}

// Calls `essaie` with every key and every combination of modifiers; Ctrl and Alt together are
// AltGr.
template <class Essai>
void pour_chaque_frappe(Essai&& essaie) {
    for (const int touche : toutes_touches())
        for (int bits = 0; bits < 8; ++bits) {
            const FrappeTouche f{touche, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
            CAPTURE(touche);
            CAPTURE(bits);
            essaie(f);
        }
}

// State after a command ran by its name on a fresh program.
Instantane apres_commande(const char* commande) {
    demarre_avec_feuille();
    REQUIRE(execute_commande(commande));
    return prend_instantane();
}

}  // namespace

TEST_CASE("keys: the commands of the map can be told apart by what they do") {
    demarre_avec_feuille();
    std::vector<Instantane> etats{prend_instantane()};
    for (const ToucheAttendue& ligne : kCarte) {
        if (ligne.sorte != Sorte::commande) continue;
        CAPTURE(std::string(ligne.commande));
        const Instantane etat = apres_commande(ligne.commande);
        for (const Instantane& autre : etats) CHECK_FALSE(differences(autre, etat).empty());
        etats.push_back(etat);
    }
}

TEST_CASE("keys: each key released in the text does what the map says and nothing else") {
    int commandes = 0;
    pour_chaque_frappe([&](const FrappeTouche& f) {
        const ToucheAttendue& ligne = attendue(f);
        demarre_avec_feuille();
        const Instantane avant = prend_instantane();
        evenement_touche("txt", f);
        const Instantane apres = prend_instantane();
        if (ligne.sorte == Sorte::commande) {
            CHECK(differences(apres_commande(ligne.commande), apres) == Textes{});
            ++commandes;
        } else {
            const bool marque = ligne.sorte == Sorte::marque;
            CHECK(differences(avant, apres) == (marque ? Textes{"modifies"} : Textes{}));
        }
    });
    // Four combinations have Alt, four have Ctrl, two have Maj and Ctrl.
    CHECK(commandes == 5 * 4 + 4 + 2);
}

TEST_CASE("keys: in key help each key says its command, no function, or nothing") {
    pour_chaque_frappe([](const FrappeTouche& f) {
        const ToucheAttendue& ligne = attendue(f);
        demarre_en_aide(false);
        const Instantane avant = prend_instantane();
        evenement_touche("txt", f);
        const Instantane apres = prend_instantane();
        if (ligne.sorte == Sorte::commande) {
            CHECK(differences(avant, apres) == Textes{"entendu", "message", "traitee"});
            CHECK(apres.at("entendu") == "message " + std::string(ligne.mots) + "\n");
        } else if (ligne.sorte == Sorte::rien) {
            CHECK(differences(avant, apres) == Textes{"entendu", "message"});
            CHECK(apres.at("entendu") == "message aucune fonction\n");
        } else {
            const bool marque = ligne.sorte == Sorte::marque;
            CHECK(differences(avant, apres) == (marque ? Textes{"modifies"} : Textes{}));
        }
    });
}

TEST_CASE("keys: in key help the key of a command that has spoken says nothing more") {
    pour_chaque_frappe([](const FrappeTouche& f) {
        const ToucheAttendue& ligne = attendue(f);
        if (ligne.sorte == Sorte::commande) return;
        demarre_en_aide(true);
        const Instantane avant = prend_instantane();
        evenement_touche("txt", f);
        // A key that is passed over keeps the note for the next one.
        const Textes parts = ligne.sorte == Sorte::rien     ? Textes{"traitee"}
                             : ligne.sorte == Sorte::marque ? Textes{"modifies"}
                                                            : Textes{};
        CHECK(differences(avant, prend_instantane()) == parts);
    });
}

TEST_CASE("keys: a shortcut and its release in key help say the item once") {
    for (const LigneCommande& ligne : lignes_menu()) {
        if (ligne.mots_aide.empty() || ligne.raccourci.touche == kToucheAucune) continue;
        CAPTURE(std::string(ligne.nom));
        demarre_en_aide(false);
        const FrappeTouche f{ligne.raccourci.touche, ligne.raccourci.maj, ligne.raccourci.ctrl,
                             false};
        evenement_menu(item_du_raccourci(f));
        evenement_touche("txt", f);
        CHECK(tout_entendu() == "message " + vers_utf8(ligne.mots_aide) + "\n");
        CHECK_FALSE(aide.aide_touche_traitee);
    }
}

TEST_CASE("keys: released outside the text they do nothing") {
    pour_chaque_frappe([](const FrappeTouche& f) {
        demarre_avec_feuille();
        const Instantane avant = prend_instantane();
        for (const char* autre : {"Liste", "CmdQuitter", "OptionRadian", ""})
            evenement_touche(autre, f);
        CHECK(differences(avant, prend_instantane()) == Textes{});
    });
}

TEST_CASE("keys: each character in the text marks the sheet, Escape and key help do not") {
    for (int code = 1; code < 256; ++code) {
        CAPTURE(code);
        demarre_avec_feuille();
        Instantane avant = prend_instantane();
        evenement_caractere("txt", code);
        CHECK(differences(avant, prend_instantane()) ==
              (code == kToucheEchap ? Textes{} : Textes{"modifies"}));
        demarre_en_aide(false);
        avant = prend_instantane();
        evenement_caractere("txt", code);
        CHECK(differences(avant, prend_instantane()) == Textes{});
    }
}

TEST_CASE("keys: which keys would write in a text") {
    const FrappeTouche lettre{'S', false, false, false}, alt_gr{'S', false, true, true};
    CHECK(ecrirait(lettre, 's'));
    CHECK(ecrirait({kToucheAutre, false, false, false}, ' '));
    CHECK(ecrirait(alt_gr, '$'));
    for (const int touche : std::initializer_list<int>{kToucheEntree, kToucheSuppr, kToucheArriere})
        CHECK(ecrirait({touche, false, false, false}, 0));
    for (const int touche : std::initializer_list<int>{'V', 'X', kToucheSuppr, kToucheArriere})
        CHECK(ecrirait({touche, false, true, false}, 0));
    CHECK(ecrirait({kToucheInser, true, false, false}, 0));
    for (const FrappeTouche& frappe : {FrappeTouche{'C', false, true, false}, {kToucheInser, false, true, false},
                                       {kToucheEntree, false, true, false}, {kToucheBas, false, false, false},
                                       {kToucheTab, false, false, false}, {'C', false, false, true}, alt_gr})
        CHECK_FALSE(ecrirait(frappe, 0));
}
