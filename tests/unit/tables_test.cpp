// The menu table walked row by row: key help, names, shortcuts, captions. Each row is tried on a
// program of its own with one sheet open.
#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "documents/open_documents.hpp"
#include "helpers.hpp"
#include "one_sheet.hpp"
#include "settings/settings.hpp"
#include "shell/commands.hpp"
#include "shell/events.hpp"
#include "shell/help_mode.hpp"
#include "shell/menus.hpp"

namespace {

std::string utf8(std::string_view texte) { return vers_utf8(texte); }

// An item of the menu Outils and its number, in the order of the numbers.
struct NumeroOutil {
    int numero;
    std::string_view nom;
};
constexpr auto kNumerosOutils = std::to_array<NumeroOutil>({
    {50, "mnuVerifierItem"},
    {51, "mnuConstatSuivantItem"},
    {52, "mnuConstatPrecedentItem"},
    {53, "mnuAttentionItem"},
    {54, "mnuDireLigneItem"},
    {55, "mnuParentheseItem"},
    {56, "mnuAllerFauteItem"},
    {57, "mnuExpliquerItem"},
    {58, "mnuErreurSuivanteItem"},
    {59, "mnuErreurPrecedenteItem"},
    {60, "mnuRepeterItem"},
    {61, "mnuCopierResultatItem"},
    {62, "mnuEpelerItem"},
    {63, "mnuExporterPageItem"},
    {64, "mnuImporterItem"},
    {65, "mnuExporterDonneesItem"},
    {66, "mnuEtudierItem"},
    {67, "mnuEcouterItem"},
});

struct RaccourciAttendu {
    std::string nom;
    Raccourci raccourci;
};

constexpr Raccourci simple(int t) { return {t, false, false}; }
constexpr Raccourci avec_ctrl(int t) { return {t, true, false}; }
constexpr Raccourci avec_maj(int t) { return {t, false, true}; }

// Every item that has a key in the menus.
const auto kRaccourcis = std::to_array<RaccourciAttendu>({
    {"mnuNouveauItem", avec_ctrl('N')},
    {"mnuOuvrirItem", avec_ctrl('O')},
    {"mnuFichierPrecedentItem", avec_maj(kToucheF6)},
    {"mnuFichierSuivantItem", simple(kToucheF6)},
    {"mnuEnregistrerItem", avec_ctrl('S')},
    {"mnuFermerItem", avec_ctrl(kToucheF4)},
    {"mnuImprimer", avec_ctrl('P')},
    {"mnumodifLigneItem", avec_ctrl('L')},
    {"mnumodifLigneSansDialItem", avec_ctrl('J')},
    {"mnuEffaceMotItem", avec_ctrl('T')},
    {"MnuParleResultatItem", avec_ctrl('R')},
    {"mnuTabulationAvantItem", simple(kToucheF9)},
    {"mnuTabulationArriereItem", avec_maj(kToucheF9)},
    {"mnuPoseRepereItem", avec_ctrl(kToucheF1)},
    {"mnuRepereItem", avec_maj(kToucheF1)},
    {"mnuXYItem", avec_ctrl('G')},
    {"mnuNumeroLigneItem", avec_ctrl('Y')},
    {"mnuSelectionToutItem", avec_ctrl('A')},
    {"mnuRechercherDebutItem", simple(kToucheF3)},
    {"mnuRechercherArriereItem", avec_ctrl('E')},
    {"mnuRechercherPrecedentItem", avec_maj(kToucheF3)},
    {"mnuRechercherSuivantItem", avec_ctrl(kToucheF3)},
    {"mnuEntierItem", simple(kToucheF5)},
    {"mnuFlottantItem", simple(kToucheF7)},
    {"mnuPuissanceItem", avec_ctrl(kToucheF7)},
    {"mnuHexaItem", avec_maj(kToucheF7)},
    {"mnuAngleItem", simple(kToucheF8)},
    {"mnuNombreDecimalItem", avec_ctrl(kToucheF5)},
    {"mnuSonItem", avec_ctrl(kToucheF8)},
    {"mnuAideToucheItem", simple(kToucheF1)},
    {"mnuVerifierItem", avec_ctrl('K')},
    {"mnuConstatSuivantItem", simple(kToucheF4)},
    {"mnuConstatPrecedentItem", avec_maj(kToucheF4)},
    {"mnuDireLigneItem", simple(kToucheF2)},
    {"mnuParentheseItem", avec_ctrl('B')},
    {"mnuAllerFauteItem", simple(kToucheF12)},
    {"mnuExpliquerItem", avec_maj(kToucheF12)},
    {"mnuErreurSuivanteItem", simple(kToucheF11)},
    {"mnuErreurPrecedenteItem", avec_maj(kToucheF11)},
    {"mnuRepeterItem", avec_ctrl('D')},
    {"mnuCopierResultatItem", avec_ctrl(kToucheF2)},
    {"mnuEpelerItem", avec_maj(kToucheF2)},
    {"mnuExporterPageItem", avec_ctrl('H')},
    {"mnuImporterItem", avec_ctrl('I')},
    {"mnuEtudierItem", avec_ctrl('U')},
    {"mnuEcouterItem", avec_ctrl(kToucheF9)},
});

// The items by their number in the window, which readers' scripts know.
constexpr auto kNumeros = std::to_array<std::string_view>({
    "mnuNouveauItem", "mnuOuvrirItem", "mnuFichierPrecedentItem", "mnuFichierSuivantItem",
    "mnuEnregistrerItem", "mnuEnregistrerSousItem", "mnuFermerItem", "mnuImprimer",
    "mnuParametreImprimer", "mnuQuitterItem", "mnuCalculItem", "mnuCalculColonneItem",
    "mnumodifLigneItem", "mnumodifLigneSansDialItem", "mnumodifTexteItem", "mnuEffaceMotItem",
    "MnuParleResultatItem", "mnuFonctionItem", "mnuTabulationAvantItem",
    "mnuTabulationArriereItem", "mnuChaineGaucheItem", "mnuChaineDroiteItem", "mnuPoseRepereItem",
    "mnuRepereItem", "mnuXYItem", "mnuNumeroLigneItem", "mnuSelectionToutItem",
    "mnuRechercherDebutItem", "mnuRechercherCurseurItem", "mnuRechercherArriereItem",
    "mnuRechercherPrecedentItem", "mnuRechercherSuivantItem", "mnuEntierItem", "mnuFlottantItem",
    "mnuPuissanceItem", "mnuHexaItem", "mnuAngleItem", "mnuNombreDecimalItem",
    "mnuDerniereFeuilleItem", "mnuColonneMatrice", "mnuLigneStat", "mnuCouleurEcran",
    "mnuPoliceEcran", "mnuPoliceImprimante", "mnuAnnulerItem", "mnuRetablirItem", "mnuSonItem",
    "mnuAideToucheItem", "mnuAideTxtItem", "mnuApropos"});

// The item that these keys belong to, or "".
std::string item_attendu(const FrappeTouche& f) {
    for (const RaccourciAttendu& r : kRaccourcis)
        if (!f.alt && r.raccourci.touche == f.touche && r.raccourci.ctrl == f.ctrl &&
            r.raccourci.maj == f.maj)
            return r.nom;
    return "";
}

// Letter after "&", in capitals, or 0.
char lettre_acces(std::string_view libelle) {
    const std::size_t et = libelle.find('&');
    return et == std::string_view::npos || et + 1 == libelle.size() ? '\0'
                                                                    : capitale(libelle[et + 1]);
}

// The parts that a command may leave otherwise in key help, whose text was emptied.
Instantane sans_la_feuille(Instantane tout) {
    for (const char* part : {"texte", "curseur", "fichiers", "controles", "aide", "traitee"})
        tout.erase(part);
    // The cursor noted for the sheet is that of the emptied text.
    std::string& lignes = tout["reglages"];
    lignes.erase(0, lignes.find('\n'));
    return tout;
}

// State of the program after the item was chosen, with Cancel as the answer to every question.
Instantane apres_item(std::string_view nom) {
    evenement_menu(nom);
    return prend_instantane();
}

}  // namespace

TEST_CASE("menus: in key help an item with words says them once and does nothing else") {
    int essayes = 0;
    for (const LigneCommande& ligne : lignes_menu()) {
        if (ligne.mots_aide.empty()) continue;
        CAPTURE(utf8(ligne.nom));
        demarre_en_aide(false);
        const Instantane avant = prend_instantane();
        const Instantane apres = apres_item(ligne.nom);
        CHECK(differences(avant, apres) == Textes{"entendu", "message", "traitee"});
        CHECK(apres.at("entendu") == "message " + utf8(ligne.mots_aide) + "\n");
        CHECK(aide.aide_touche_traitee);
        CHECK(aide.aide_touche);
        ++essayes;
    }
    CHECK(essayes >= 40);
}

TEST_CASE("menus: in key help an item said twice is still heard, in the padded form") {
    for (const LigneCommande& ligne : lignes_menu()) {
        if (ligne.mots_aide.empty()) continue;
        CAPTURE(utf8(ligne.nom));
        demarre_en_aide(false);
        evenement_menu(ligne.nom);
        memoire.journal.clear();
        evenement_menu(ligne.nom);
        CHECK(tout_entendu() == "message  " + utf8(ligne.mots_aide) + "  \n");
    }
}

TEST_CASE("menus: an item without words acts in key help as it does without") {
    int essayes = 0;
    for (const LigneCommande& ligne : lignes_menu()) {
        if (!ligne.mots_aide.empty() || ligne.nom == "mnuAideToucheItem") continue;
        CAPTURE(utf8(ligne.nom));
        demarre_avec_feuille();
        const Instantane avant = prend_instantane();
        const Instantane sans_aide = apres_item(ligne.nom);
        CHECK_FALSE(differences(avant, sans_aide).empty());
        demarre_en_aide(false);
        const Instantane avec_aide = apres_item(ligne.nom);
        CHECK(differences(sans_la_feuille(sans_aide), sans_la_feuille(avec_aide)) == Textes{});
        CHECK_FALSE(aide.aide_touche_traitee);
        ++essayes;
    }
    CHECK(essayes >= 9);
}

TEST_CASE("menus: the guide and the about text leave the sheet's working copy in key help") {
    for (const char* nom : {"mnuAideTxtItem", "mnuApropos"}) {
        CAPTURE(nom);
        demarre_avec_feuille();
        evenement_menu(nom);
        const std::string montre = memoire.texte;
        CHECK(lit_memoire(documents.nom_copie(1)) == kUneFeuille);
        demarre_en_aide(false);
        evenement_menu(nom);
        CHECK(memoire.texte == montre);
        CHECK(lit_memoire(documents.nom_copie(1)) == kUneFeuille);
        CHECK(lit_memoire("C:\\A.VXT") == kUneFeuille);
    }
}

TEST_CASE("menus: key help chosen again brings the sheet back with its cursor") {
    demarre_avec_feuille();
    const Instantane avant = prend_instantane();
    evenement_menu("mnuAideToucheItem");
    CHECK(memoire.texte.empty());
    evenement_menu("mnuAideToucheItem");
    // The cursor was noted in the sheet's row on the way.
    CHECK(differences(avant, prend_instantane()) ==
          Textes{"entendu", "message", "reglages", "traitee"});
    CHECK(tout_entendu() == "message Aide Mémoire des touches\nmessage B=A*2+A\n");
}

TEST_CASE("menus: every shortcut leads to its item, and no other keys lead to one") {
    std::set<int> touches;
    for (int code = 1; code <= kToucheAutre; ++code) touches.insert(code);
    std::size_t trouves = 0;
    for (const int touche : touches)
        for (int bits = 0; bits < 8; ++bits) {
            const FrappeTouche f{touche, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
            CAPTURE(touche);
            CAPTURE(bits);
            const std::string item(item_du_raccourci(f));
            CHECK(item == item_attendu(f));
            if (!item.empty()) ++trouves;
        }
    CHECK(trouves == kRaccourcis.size());
    for (int bits = 0; bits < 8; ++bits)
        CHECK(item_du_raccourci(
                  {kToucheAucune, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0}) == "");
}

TEST_CASE("menus: the table has the shortcuts of the expected items and no others") {
    std::map<std::string, Raccourci> attendus;
    for (const RaccourciAttendu& r : kRaccourcis) attendus[r.nom] = r.raccourci;
    for (const LigneCommande& ligne : lignes_menu()) {
        CAPTURE(utf8(ligne.nom));
        const Raccourci attendu = attendus[std::string(ligne.nom)];
        CHECK(ligne.raccourci.touche == attendu.touche);
        CHECK(ligne.raccourci.ctrl == attendu.ctrl);
        CHECK(ligne.raccourci.maj == attendu.maj);
    }
    CHECK(attendus.size() == lignes_menu().size());
}

TEST_CASE("menus: every item is the name of a command, and nothing else is") {
    for (const LigneCommande& ligne : lignes_menu()) {
        CAPTURE(utf8(ligne.nom));
        demarre_avec_feuille();
        CHECK(execute_commande(ligne.nom));
        CHECK(ligne_menu(ligne.nom) == &ligne);
        CHECK(etat_item(ligne.nom) != nullptr);
    }
    demarre_avec_feuille();
    const Instantane avant = prend_instantane();
    for (const char* nom : {"", "mnu", "mnunouveauitem", "mnuNouveauItem ", "&Nouveau..."}) {
        CHECK_FALSE(execute_commande(nom));
        CHECK(ligne_menu(nom) == nullptr);
        evenement_menu(nom);
    }
    CHECK(differences(avant, prend_instantane()) == Textes{});
}

TEST_CASE("menus: a hidden or disabled item does nothing") {
    for (const LigneCommande& ligne : lignes_menu())
        for (const bool cache : {false, true}) {
            CAPTURE(utf8(ligne.nom));
            demarre_avec_feuille();
            (cache ? etat_item(ligne.nom)->visible : etat_item(ligne.nom)->actif) = false;
            const Instantane avant = prend_instantane();
            evenement_menu(ligne.nom);
            CHECK(differences(avant, prend_instantane()) == Textes{});
        }
}

TEST_CASE("menus: names, shortcuts, captions, words and letters are told apart") {
    std::set<std::string> noms, libelles, mots;
    std::set<std::pair<std::string, char>> lettres;
    std::set<std::array<int, 3>> raccourcis;
    for (const LigneCommande& ligne : lignes_menu()) {
        CAPTURE(utf8(ligne.nom));
        CHECK(noms.emplace(ligne.nom).second);
        CHECK(libelles.emplace(ligne.libelle).second);
        CHECK((ligne.mots_aide.empty() || mots.emplace(ligne.mots_aide).second));
        const Raccourci& r = ligne.raccourci;
        CHECK((r.touche == kToucheAucune ||
               raccourcis.insert({r.touche, r.ctrl ? 1 : 0, r.maj ? 1 : 0}).second));
        const char lettre = lettre_acces(ligne.libelle);
        CHECK((lettre == 0 || lettres.emplace(ligne.menu, lettre).second));
    }
}

TEST_CASE("menus: the menus stand in their order, each in one piece") {
    Textes suite;
    for (const LigneCommande& ligne : lignes_menu())
        if (suite.empty() || suite.back() != ligne.menu) suite.emplace_back(ligne.menu);
    CHECK(suite == Textes{"&Fichier", "&Edition", "&Affichage", "Recherche", "&Options", "Ou&tils", "&?"});
}

TEST_CASE("menus: the items of Outils that came later stand in the order of their numbers") {
    int dernier = -1;
    for (const LigneCommande& ligne : lignes_menu()) {
        if (ligne.menu != "Ou&tils") continue;
        CAPTURE(utf8(ligne.nom));
        CHECK(ligne.numero > dernier);
        dernier = ligne.numero;
    }
}

TEST_CASE("menus: every item keeps its number in the window") {
    int numero = 0;
    for (const std::string_view nom : kNumeros) {
        CAPTURE(utf8(nom));
        REQUIRE(ligne_numero(numero) != nullptr);
        CHECK(ligne_numero(numero++)->nom == nom);
    }
    for (const NumeroOutil& outil : kNumerosOutils) {
        CAPTURE(utf8(outil.nom));
        REQUIRE(ligne_numero(outil.numero) != nullptr);
        CHECK(ligne_numero(outil.numero)->nom == outil.nom);
    }
    CHECK(kNumeros.size() + kNumerosOutils.size() == lignes_menu().size());
    CHECK(ligne_numero(-1) == nullptr);
}
