// The table of all commands and their dispatcher. Changes the state of the items; the commands change what
// they say.
#include "shell/commands.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "documents/bookmarks.hpp"
#include "documents/open_documents.hpp"
#include "documents/printing.hpp"
#include "documents/saving.hpp"
#include "editing/search.hpp"
#include "editing/words.hpp"
#include "platform/message.hpp"
#include "shell/brackets.hpp"
#include "shell/calculation.hpp"
#include "shell/colours.hpp"
#include "shell/data_commands.hpp"
#include "shell/faults.hpp"
#include "shell/heard.hpp"
#include "shell/help_mode.hpp"
#include "shell/menus.hpp"
#include "shell/options.hpp"
#include "shell/quitting.hpp"
#include "shell/review.hpp"
#include "shell/results.hpp"
#include "shell/spoken_line.hpp"
#include "shell/study_commands.hpp"
#include "shell/tools.hpp"
#include "shell/views.hpp"
#include "state/pass_result.hpp"

namespace {

constexpr std::string_view kFichier = "&Fichier";
constexpr std::string_view kEdition = "&Edition";
constexpr std::string_view kAffichage = "&Affichage";
constexpr std::string_view kRecherche = "Recherche";
constexpr std::string_view kOptions = "&Options";
constexpr std::string_view kOutils = "Ou&tils";   // what the program adds: the others stay as they are
constexpr std::string_view kAide = "&?";

constexpr Raccourci seule(int touche) { return {touche, false, false}; }
constexpr Raccourci ctrl(int touche) { return {touche, true, false}; }
constexpr Raccourci maj(int touche) { return {touche, false, true}; }

// The items, in the order of the tree. A new row takes the next free number, wherever it stands.
constexpr auto kItems = std::to_array<LigneCommande>({
    {.numero = 0, .menu = kFichier, .nom = "mnuNouveauItem", .libelle = "&Nouveau..."_fr,
     .raccourci = ctrl('N'), .mots_aide = "nouveau fichier"_fr, .vues = Vues::quittees,
     .execute = mnuNouveauItem},
    {.numero = 1, .menu = kFichier, .nom = "mnuOuvrirItem", .libelle = "&Ouvrir..."_fr,
     .raccourci = ctrl('O'), .mots_aide = "ouvrir un fichier"_fr, .vues = Vues::quittees,
     .execute = mnuOuvrirItem},
    {.numero = 2, .menu = kFichier, .nom = "mnuFichierPrecedentItem",
     .libelle = "Fichier précédent"_fr, .raccourci = maj(kToucheF6),
     .mots_aide = "Lecture du fichier ouvert précédent"_fr, .vues = Vues::quittees,
     .execute = mnuFichierPrecedentItem},
    {.numero = 3, .menu = kFichier, .nom = "mnuFichierSuivantItem", .libelle = "Fichier suivant"_fr,
     .raccourci = seule(kToucheF6), .mots_aide = "Lecture du fichier ouvert suivant"_fr,
     .vues = Vues::quittees, .execute = mnuFichierSuivantItem},
    {.numero = 4, .menu = kFichier, .nom = "mnuEnregistrerItem", .libelle = "Enregistrer"_fr,
     .raccourci = ctrl('S'), .mots_aide = "enregistrer un fichier"_fr,
     .execute = mnuEnregistrerItem},
    {.numero = 5, .menu = kFichier, .nom = "mnuEnregistrerSousItem", .procedure = "enregistrersous",
     .libelle = "&Enregistrer sous... Controle Maj S"_fr, .relachee = {'S', Avec::maj_ctrl},
     .mots_aide = "enregistrer sous un autre nom"_fr, .execute = mnuEnregistrerSousItem},
    {.numero = 6, .menu = kFichier, .nom = "mnuFermerItem", .libelle = "&Fermer"_fr,
     .raccourci = ctrl(kToucheF4), .mots_aide = "fermer un fichier"_fr, .vues = Vues::quittees,
     .execute = mnuFermerItem},
    {.numero = 7, .menu = kFichier, .nom = "mnuImprimer", .libelle = "Im&primer"_fr,
     .raccourci = ctrl('P'), .mots_aide = "imprimer un fichier"_fr, .execute = mnuImprimer},
    {.numero = 8, .menu = kFichier, .nom = "mnuParametreImprimer",
     .libelle = "Choix de l'imprimante"_fr, .execute = mnuParametreImprimer},
    {.numero = 9, .menu = kFichier, .nom = kItemQuitter, .procedure = "quitter",
     .libelle = "&Quitter"_fr, .mots_aide = kMotsQuitter, .execute = quitter},

    {.numero = 10, .menu = kEdition, .nom = "mnuCalculItem", .procedure = "recalcul",
     .libelle = "Calcul de la feuille : AltGr+C"_fr, .relachee = {'C', Avec::alt},
     .mots_aide = kMotsCalcul, .refus = kPasUneFeuille, .execute = mnuCalculItem},
    {.numero = 11, .menu = kEdition, .nom = "mnuCalculColonneItem", .procedure = "calcul_colonne",
     .libelle = "Calcul de toutes les lignes en colonne Ctrl Entrée"_fr,
     .relachee = {kToucheEntree, Avec::ctrl},
     .mots_aide = "calcul de toutes les lignes en colonne"_fr, .refus = kPasUneFeuille,
     .execute = mnuCalculColonneItem},
    {.numero = 12, .menu = kEdition, .nom = "mnumodifLigneItem",
     .libelle = "Remplacement sur la ligne"_fr, .raccourci = ctrl('L'),
     .mots_aide = "Remplacement sur la ligne"_fr, .refus = kPasUneFeuille,
     .execute = mnumodifLigneItem},
    {.numero = 13, .menu = kEdition, .nom = "mnumodifLigneSansDialItem",
     .libelle = "Remplacement sur la ligne sans dialogue"_fr, .raccourci = ctrl('J'),
     .mots_aide = "Remplacement sur la ligne sans entrer les chaines"_fr,
     .refus = kPasUneFeuille, .execute = mnumodifLigneSansDialItem},
    {.numero = 14, .menu = kEdition, .nom = "mnumodifTexteItem", .procedure = "modifTexte",
     .libelle = "Remplacement sur le texte : Alt M"_fr, .mots_aide = kMotsModifTexte,
     .refus = kPasUneFeuille, .execute = mnumodifTexteItem},
    {.numero = 15, .menu = kEdition, .nom = "mnuEffaceMotItem",
     .libelle = "Suppression du mot sous le curseur"_fr, .raccourci = ctrl('T'),
     .mots_aide = "Suppression du mot sous le curseur"_fr, .refus = kPasUneFeuille,
     .execute = mnuEffaceMotItem},

    {.numero = 16, .menu = kAffichage, .nom = "MnuParleResultatItem",
     .libelle = "Resultat de la ligne"_fr, .raccourci = ctrl('R'),
     .mots_aide = "Resultat de la ligne"_fr, .execute = MnuParleResultatItem},
    {.numero = 17, .menu = kAffichage, .nom = "mnuFonctionItem", .procedure = "AfficheFonction",
     .libelle = "Liste des fonctions : AltGr+F1"_fr, .relachee = {kToucheF1, Avec::alt},
     .mots_aide = "Liste des fonctions"_fr, .execute = AfficheFonction},
    {.numero = 18, .menu = kAffichage, .nom = "mnuTabulationAvantItem",
     .libelle = "Tabulation avant"_fr, .raccourci = seule(kToucheF9),
     .mots_aide = "Tabulation avant"_fr, .execute = mnuTabulationAvantItem},
    {.numero = 19, .menu = kAffichage, .nom = "mnuTabulationArriereItem",
     .libelle = "Tabulation arrière"_fr, .raccourci = maj(kToucheF9),
     .mots_aide = "Tabulation arrière"_fr, .execute = mnuTabulationArriereItem},
    {.numero = 20, .menu = kAffichage, .nom = "mnuChaineGaucheItem", .procedure = "chaineGAUCHE",
     .libelle = "Chaine à gauche Alt Fleche Gauche"_fr, .relachee = {kToucheGauche, Avec::alt},
     .mots_aide = "chaine à gauche"_fr, .execute = mnuChaineGaucheItem},
    {.numero = 21, .menu = kAffichage, .nom = "mnuChaineDroiteItem", .procedure = "chainedroite",
     .libelle = "Chaine à droite Alt Fleche Droite"_fr, .relachee = {kToucheDroite, Avec::alt},
     .mots_aide = "chaine à droite"_fr, .execute = mnuChaineDroiteItem},
    {.numero = 22, .menu = kAffichage, .nom = "mnuPoseRepereItem", .libelle = "Pose d'un repère"_fr,
     .raccourci = ctrl(kToucheF1), .mots_aide = "Pose d'un repère"_fr,
     .execute = mnuPoseRepereItem},
    {.numero = 23, .menu = kAffichage, .nom = "mnuRepereItem", .libelle = "Affichage au repère"_fr,
     .raccourci = maj(kToucheF1), .mots_aide = "Affichage au repère"_fr, .execute = mnuRepereItem},
    {.numero = 24, .menu = kAffichage, .nom = "mnuXYItem", .libelle = "Coordonnées du curseur"_fr,
     .raccourci = ctrl('G'), .mots_aide = "coordonnées du curseur"_fr, .execute = mnuXYItem},
    {.numero = 25, .menu = kAffichage, .nom = "mnuNumeroLigneItem",
     .libelle = "Allez à un numéro de ligne"_fr, .raccourci = ctrl('Y'),
     .mots_aide = "aller à un numéro de ligne"_fr, .execute = mnuNumeroLigneItem},
    {.numero = 26, .menu = kAffichage, .nom = "mnuSelectionToutItem",
     .libelle = "Sélection de tout le texte"_fr, .raccourci = ctrl('A'),
     .mots_aide = "sélection tout"_fr, .execute = mnuSelectionToutItem},

    {.numero = 27, .menu = kRecherche, .nom = "mnuRechercherDebutItem",
     .libelle = "Rechercher depuis le début"_fr, .raccourci = seule(kToucheF3),
     .mots_aide = "recherche depuis le début du texte"_fr, .execute = mnuRechercherDebutItem},
    {.numero = 28, .menu = kRecherche, .nom = "mnuRechercherCurseurItem",
     .libelle = "Rechercher depuis le curseur : AltGr+R"_fr, .relachee = {'R', Avec::alt},
     .mots_aide = "Rechercher depuis le curseur"_fr, .execute = mnuRechercherCurseurItem},
    {.numero = 29, .menu = kRecherche, .nom = "mnuRechercherArriereItem",
     .libelle = "Rechercher depuis le curseur n arrière"_fr, .raccourci = ctrl('E'),
     .mots_aide = "recherche en arrière depuis la position du curseur"_fr,
     .execute = mnuRechercherArriereItem},
    {.numero = 30, .menu = kRecherche, .nom = "mnuRechercherPrecedentItem",
     .libelle = "Recherche précédente"_fr, .raccourci = maj(kToucheF3),
     .mots_aide = "recherche précédente"_fr, .execute = mnuRechercherPrecedentItem},
    {.numero = 31, .menu = kRecherche, .nom = "mnuRechercherSuivantItem",
     .libelle = "Recherche suivante"_fr, .raccourci = ctrl(kToucheF3),
     .mots_aide = "recherche suivante"_fr, .execute = mnuRechercherSuivantItem},

    {.numero = 32, .menu = kOptions, .nom = "mnuEntierItem", .libelle = "Nombre entier"_fr,
     .raccourci = seule(kToucheF5), .mots_aide = "Entier"_fr, .dite = true,
     .vues = Vues::quittees, .execute = mnuEntierItem},
    {.numero = 33, .menu = kOptions, .nom = "mnuFlottantItem", .libelle = "Nombre flottant"_fr,
     .raccourci = seule(kToucheF7), .mots_aide = "Flottant"_fr, .dite = true,
     .vues = Vues::quittees, .execute = mnuFlottantItem},
    {.numero = 34, .menu = kOptions, .nom = "mnuPuissanceItem",
     .libelle = "Nombre en puissance de 10"_fr, .raccourci = ctrl(kToucheF7),
     .mots_aide = "Flottant en puissance de 10"_fr, .dite = true, .vues = Vues::quittees,
     .execute = mnuPuissanceItem},
    {.numero = 35, .menu = kOptions, .nom = "mnuHexaItem", .libelle = "Nombre hexadécimal"_fr,
     .raccourci = maj(kToucheF7), .mots_aide = "Hexadécimal"_fr, .dite = true,
     .vues = Vues::quittees, .execute = mnuHexaItem},
    {.numero = 36, .menu = kOptions, .nom = "mnuAngleItem", .libelle = "Unité d'angle"_fr,
     .raccourci = seule(kToucheF8), .mots_aide = "Unité d'angle"_fr,
     .vues = Vues::quittees, .execute = mnuAngleItem},
    {.numero = 37, .menu = kOptions, .nom = "mnuNombreDecimalItem",
     .libelle = "Nombre de décimal"_fr, .raccourci = ctrl(kToucheF5),
     .mots_aide = "nombre de décimal"_fr, .vues = Vues::quittees, .execute = mnuNombreDecimalItem},
    {.numero = 38, .menu = kOptions, .nom = kItemDerniereFeuille,
     .libelle = "Affichage dernière feuille au lancement"_fr, .cochable = true,
     .execute = mnuDerniereFeuilleItem},
    {.numero = 39, .menu = kOptions, .nom = kItemMatrice,
     .libelle = "Affichage matrice en Ligne/colonne"_fr, .execute = mnuColonneMatrice},
    {.numero = 40, .menu = kOptions, .nom = kItemStat,
     .libelle = "Résultat statistique restrein/complet"_fr, .execute = mnuLigneStat},
    {.numero = 41, .menu = kOptions, .nom = "mnuCouleurEcran",
     .libelle = "Choix de la couleur de l'écran"_fr, .execute = mnuCouleurEcran},
    {.numero = 42, .menu = kOptions, .nom = "mnuPoliceEcran",
     .libelle = "Choix de la police de l'écran"_fr, .execute = mnuPoliceEcran},
    {.numero = 43, .menu = kOptions, .nom = "mnuPoliceImprimante",
     .libelle = "Choix de la police de l'imprimante"_fr, .execute = mnuPoliceImprimante},

    {.numero = 44, .menu = kOutils, .nom = "mnuAnnulerItem",
     .libelle = "&Annuler la dernière modification Controle Z"_fr,
     .enfoncee = {'Z', false, true, false}, .mots_aide = "annuler la dernière modification"_fr,
     .refus = kPasUneFeuille, .execute = annule},
    {.numero = 45, .menu = kOutils, .nom = "mnuRetablirItem",
     .libelle = "&Rétablir la modification annulée Controle Maj Z"_fr,
     .enfoncee = {'Z', true, true, false}, .mots_aide = "rétablir la modification annulée"_fr,
     .refus = kPasUneFeuille, .execute = retablit},
    {.numero = 46, .menu = kOutils, .nom = kItemSon, .libelle = "Son à la fin du calcul"_fr,
     .raccourci = ctrl(kToucheF8), .mots_aide = "son à la fin du calcul"_fr, .execute = mnuSonItem},
    {.numero = 50, .menu = kOutils, .nom = "mnuVerifierItem", .libelle = "&Vérifier la feuille"_fr,
     .raccourci = ctrl('K'), .mots_aide = "vérifier la feuille"_fr, .refus = kPasUneFeuille,
     .execute = mnuVerifierItem},
    {.numero = 51, .menu = kOutils, .nom = "mnuConstatSuivantItem", .libelle = "&Constat suivant"_fr,
     .raccourci = seule(kToucheF4), .mots_aide = "constat suivant"_fr, .refus = kPasUneFeuille,
     .execute = mnuConstatSuivantItem},
    {.numero = 52, .menu = kOutils, .nom = "mnuConstatPrecedentItem", .libelle = "Consta&t précédent"_fr,
     .raccourci = maj(kToucheF4), .mots_aide = "constat précédent"_fr, .refus = kPasUneFeuille,
     .execute = mnuConstatPrecedentItem},
    {.numero = 53, .menu = kOutils, .nom = kItemAttention, .libelle = "Attention après le calcul"_fr,
     .mots_aide = "attention après le calcul"_fr, .execute = mnuAttentionItem},
    {.numero = 54, .menu = kOutils, .nom = "mnuDireLigneItem",
     .libelle = "Dire la li&gne"_fr, .raccourci = seule(kToucheF2),
     .mots_aide = "dire la ligne"_fr, .refus = kPasUneFeuille, .execute = mnuDireLigneItem},
    {.numero = 55, .menu = kOutils, .nom = "mnuParentheseItem",
     .libelle = "Parenthè&se correspondante"_fr, .raccourci = ctrl('B'),
     .mots_aide = "parenthèse correspondante"_fr, .execute = mnuParentheseItem},
    {.numero = 56, .menu = kOutils, .nom = "mnuAllerFauteItem", .libelle = "Aller à la &faute"_fr,
     .raccourci = seule(kToucheF12), .mots_aide = "aller à la faute"_fr, .vues = Vues::quittees,
     .execute = mnuAllerFauteItem},
    {.numero = 57, .menu = kOutils, .nom = kItemExpliquer, .libelle = "E&xpliquer le message"_fr,
     .raccourci = maj(kToucheF12), .mots_aide = "expliquer le message"_fr, .vues = Vues::quittees,
     .execute = mnuExpliquerItem},
    {.numero = 58, .menu = kOutils, .nom = "mnuErreurSuivanteItem",
     .libelle = "&Ligne en erreur suivante"_fr, .raccourci = seule(kToucheF11),
     .mots_aide = "ligne en erreur suivante"_fr, .vues = Vues::quittees, .execute = mnuErreurSuivanteItem},
    {.numero = 59, .menu = kOutils, .nom = "mnuErreurPrecedenteItem",
     .libelle = "Lig&ne en erreur précédente"_fr, .raccourci = maj(kToucheF11),
     .mots_aide = "ligne en erreur précédente"_fr, .vues = Vues::quittees,
     .execute = mnuErreurPrecedenteItem},
    {.numero = 60, .menu = kOutils, .nom = kItemRepeter,
     .libelle = "Répéter le dernier &message"_fr, .raccourci = ctrl('D'),
     .mots_aide = "répéter le dernier message"_fr, .une_fois = true, .execute = mnuRepeterItem},
    {.numero = 61, .menu = kOutils, .nom = "mnuCopierResultatItem", .libelle = "C&opier le résultat"_fr,
     .raccourci = ctrl(kToucheF2), .mots_aide = "copier le résultat"_fr, .execute = mnuCopierResultatItem},
    {.numero = 62, .menu = kOutils, .nom = "mnuEpelerItem", .libelle = "Épeler le rés&ultat"_fr,
     .raccourci = maj(kToucheF2), .mots_aide = "épeler le résultat"_fr, .execute = mnuEpelerItem},
    {.numero = 63, .menu = kOutils, .nom = "mnuExporterPageItem", .libelle = kLibelleExporterPage,
     .raccourci = ctrl('H'), .mots_aide = "exporter la page"_fr, .vues = Vues::quittees, .une_fois = true,
     .execute = mnuExporterPageItem},
    {.numero = 64, .menu = kOutils, .nom = "mnuImporterItem", .libelle = kLibelleImporter,
     .raccourci = ctrl('I'), .mots_aide = "importer des données"_fr, .vues = Vues::quittees, .une_fois = true,
     .execute = mnuImporterItem},
    {.numero = 65, .menu = kOutils, .nom = "mnuExporterDonneesItem", .libelle = kLibelleExporterDonnees,
     .mots_aide = "exporter les données"_fr, .vues = Vues::quittees, .execute = mnuExporterDonneesItem},
    {.numero = 66, .menu = kOutils, .nom = "mnuEtudierItem", .libelle = "Étudi&er la fonction"_fr,
     .raccourci = ctrl('U'), .mots_aide = "étudier la fonction"_fr, .vues = Vues::quittees, .une_fois = true,
     .execute = mnuEtudierItem},
    {.numero = 67, .menu = kOutils, .nom = "mnuEcouterItem", .libelle = "Écouter la cour&be"_fr,
     .raccourci = ctrl(kToucheF9), .mots_aide = "écouter la courbe"_fr, .vues = Vues::quittees, .une_fois = true,
     .execute = mnuEcouterItem},

    {.numero = 47, .menu = kAide, .nom = "mnuAideToucheItem",
     .libelle = "&Aide mémoire des touches"_fr, .raccourci = seule(kToucheF1),
     .execute = mnuAideToucheItem},
    {.numero = 48, .menu = kAide, .nom = "mnuAideTxtItem", .libelle = "&Guide"_fr,
     .execute = mnuAideTxtItem},
    {.numero = 49, .menu = kAide, .nom = "mnuApropos", .libelle = "A &propos"_fr,
     .execute = mnuApropos},
});

// The buttons, and procedures that stand in no menu.
constexpr auto kAutres = std::to_array<LigneCommande>({
    {.nom = "CmdAngle", .execute = CmdAngle},
    {.nom = "CmdVoxtab", .execute = CmdVoxtab},
    {.nom = "CmdModifTexte", .mots_aide = kMotsModifTexte, .execute = CmdModifTexte},
    {.nom = "CmdQuitter", .execute = CmdQuitter},
    // Without a pass it runs one, which in key help says its words instead.
    {.nom = "re_valeur",
     .execute = [] { if (lignes_de_la_feuille() != 0 || !annonce_mots(kMotsCalcul)) re_valeur(); }},
    {.nom = "RangeFonction", .execute = RangeFonction},
    {.nom = "RetourListe", .execute = RetourListe},
});

// True when no two rows have the same there; rows of which `sans` is true have none.
template <class Valeur, class Sans>
consteval bool differents(Valeur valeur, Sans sans) {
    for (std::size_t i = 0; i < kItems.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (!sans(kItems[i]) && !sans(kItems[j]) && valeur(kItems[i], kItems[j])) return false;
    return true;
}

constexpr auto jamais = [](const LigneCommande&) { return false; };

static_assert(differents([](const auto& a, const auto& b) { return a.numero == b.numero; }, jamais),
              "two items have one number");
static_assert(differents([](const auto& a, const auto& b) { return a.nom == b.nom; }, jamais),
              "two items have one name");
static_assert(differents(
                  [](const auto& a, const auto& b) {
                      return a.raccourci.touche == b.raccourci.touche &&
                             a.raccourci.ctrl == b.raccourci.ctrl && a.raccourci.maj == b.raccourci.maj;
                  },
                  [](const LigneCommande& l) { return l.raccourci.touche == kToucheAucune; }),
              "two items have one shortcut");
static_assert(differents(
                  [](const auto& a, const auto& b) {
                      return a.relachee.touche == b.relachee.touche &&
                             a.relachee.avec == b.relachee.avec;
                  },
                  [](const LigneCommande& l) { return l.relachee.touche == kToucheAucune; }),
              "two commands have one key of the text");
static_assert(std::ranges::all_of(kItems,
                                  [](const LigneCommande& l) {
                                      return !l.menu.empty() && !l.nom.empty() && !l.libelle.empty();
                                  }) &&
                  std::ranges::all_of(kAutres,
                                      [](const LigneCommande& l) {
                                          return !l.nom.empty();
                                      }),
              "a row is left half done");
static_assert(std::ranges::none_of(kItems,
                                   [](const LigneCommande& l) { return l.dite && l.mots_aide.empty(); }),
              "a command says words that it doesn't have");
// A key that runs its command whatever else is down would be taken from the text.
static_assert(std::ranges::none_of(kItems,
                                   [](const LigneCommande& l) {
                                       return l.relachee.touche != kToucheAucune &&
                                              l.relachee.avec == Avec::rien;
                                   }),
              "a key of the text without a modifier");

bool tient(const FrappeTouche& frappe, Avec avec) {
    switch (avec) {
        case Avec::alt: return frappe.alt;
        case Avec::ctrl: return frappe.ctrl;
        case Avec::maj_ctrl: return frappe.maj && frappe.ctrl;
        case Avec::rien: break;
    }
    return true;
}

// The first item that answers, or nullptr.
template <class Condition>
const LigneCommande* cherche(Condition condition) {
    const auto ligne = std::ranges::find_if(kItems, condition);
    return ligne == kItems.end() ? nullptr : &*ligne;
}

// The command of that name, or nullptr.
const LigneCommande* commande(std::string_view nom) {
    if (nom.empty()) return nullptr;
    const auto sienne = [&](const LigneCommande& l) { return l.nom == nom || l.procedure == nom; };
    if (const LigneCommande* item = cherche(sienne)) return item;
    const auto autre = std::ranges::find_if(kAutres, sienne);
    return autre == kAutres.end() ? nullptr : &*autre;
}

}  // namespace

std::span<const LigneCommande> lignes_menu() { return kItems; }

const LigneCommande* ligne_menu(std::string_view nom) {
    return cherche([&](const LigneCommande& l) { return l.nom == nom; });
}

const LigneCommande* ligne_numero(int numero) {
    return cherche([&](const LigneCommande& l) { return l.numero == numero; });
}

std::string_view item_du_raccourci(const FrappeTouche& frappe) {
    if (frappe.alt || frappe.touche == kToucheAucune) return "";
    const LigneCommande* const ligne = cherche([&](const LigneCommande& l) {
        const Raccourci& r = l.raccourci;
        return r.touche == frappe.touche && r.ctrl == frappe.ctrl && r.maj == frappe.maj;
    });
    return ligne == nullptr ? "" : ligne->nom;
}

const LigneCommande* commande_relachee(const FrappeTouche& frappe) {
    if (frappe.touche == kToucheAucune) return nullptr;
    return cherche([&](const LigneCommande& l) {
        return l.relachee.touche == frappe.touche && tient(frappe, l.relachee.avec);
    });
}

const LigneCommande* commande_enfoncee(const FrappeTouche& frappe) {
    if (frappe.touche == kToucheAucune) return nullptr;
    return cherche([&](const LigneCommande& l) { return l.enfoncee == frappe; });
}

void reinitialise_menus() {
    vide_menus();
    menus.items.reserve(kItems.size());
    for (const LigneCommande& ligne : kItems)
        menus.items.push_back({ligne.nom, 0, std::string(ligne.libelle), false, true, true});
}

void lance(const LigneCommande& ligne) {
    if (annonce_mots(ligne.mots_aide)) return;
    if (ligne.dite) dit(ligne.mots_aide);
    const bool partie = ligne.vues == Vues::quittees && quitte_vues();
    if (!ligne.refus.empty() && !texte_modifiable()) return dit(ligne.refus);
    ligne.execute();
    if (partie && !ligne.dite && texte_modifiable()) souffle(kRetourFeuille);   // else the sheet's line tells it
}

bool execute_commande(std::string_view nom) {
    const LigneCommande* const ligne = commande(nom);
    if (ligne == nullptr) return false;
    Tente(kCommande, [&] { lance(*ligne); });
    return true;
}
