// The menu tree as one table of rows, and the state of the items. Changes `menus`.
#include "shell/menu_table.hpp"

#include <cstddef>

#include "base/codepage.hpp"

Menus menus;

namespace {

constexpr std::string_view kFichier = "&Fichier";
constexpr std::string_view kEdition = "&Edition";
constexpr std::string_view kAffichage = "&Affichage";
constexpr std::string_view kRecherche = "Recherche";
constexpr std::string_view kOptions = "&Options";
constexpr std::string_view kOutils = "Ou&tils";   // what the program adds: the others stay as they are
constexpr std::string_view kAide = "&?";

constexpr Raccourci kSans{};
constexpr Raccourci seule(int touche) { return {touche, false, false}; }
constexpr Raccourci ctrl(int touche) { return {touche, true, false}; }
constexpr Raccourci maj(int touche) { return {touche, false, true}; }

constexpr std::array kFichierLignes = {
    LigneMenu{kFichier, "mnuNouveauItem", "&Nouveau..."_fr, ctrl('N'), "nouveau fichier"_fr},
    LigneMenu{kFichier, "mnuOuvrirItem", "&Ouvrir..."_fr, ctrl('O'), "ouvrir un fichier"_fr},
    LigneMenu{kFichier, "mnuFichierPrecedentItem", "Fichier précédent"_fr, maj(kToucheF6),
              "Lecture du fichier ouvert précédent"_fr},
    LigneMenu{kFichier, "mnuFichierSuivantItem", "Fichier suivant"_fr, seule(kToucheF6),
              "Lecture du fichier ouvert suivant"_fr},
    LigneMenu{kFichier, "mnuEnregistrerItem", "Enregistrer"_fr, ctrl('S'),
              "enregistrer un fichier"_fr},
    LigneMenu{kFichier, "mnuEnregistrerSousItem", "&Enregistrer sous... Controle Maj S"_fr, kSans,
              "enregistrer sous un autre nom"_fr},
    LigneMenu{kFichier, "mnuFermerItem", "&Fermer"_fr, ctrl(kToucheF4), "fermer un fichier"_fr},
    LigneMenu{kFichier, "mnuImprimer", "Im&primer"_fr, ctrl('P'), "imprimer un fichier"_fr},
    LigneMenu{kFichier, "mnuParametreImprimer", "Choix de l'imprimante"_fr, kSans, ""},
    LigneMenu{kFichier, "mnuQuitterItem", "&Quitter"_fr, kSans, "quitter la calculatrice"_fr},
};

constexpr std::array kEditionLignes = {
    LigneMenu{kEdition, "mnuCalculItem", "Calcul de la feuille : AltGr+C"_fr, kSans,
              "calcul de la feuille"_fr},
    LigneMenu{kEdition, "mnuCalculColonneItem",
              "Calcul de toutes les lignes en colonne Ctrl Entrée"_fr, kSans,
              "calcul de toutes les lignes en colonne"_fr},
    LigneMenu{kEdition, "mnumodifLigneItem", "Remplacement sur la ligne"_fr, ctrl('L'),
              "Remplacement sur la ligne"_fr},
    LigneMenu{kEdition, "mnumodifLigneSansDialItem",
              "Remplacement sur la ligne sans dialogue"_fr, ctrl('J'),
              "Remplacement sur la ligne sans entrer les chaines"_fr},
    LigneMenu{kEdition, "mnumodifTexteItem", "Remplacement sur le texte : Alt M"_fr, kSans,
              "Remplacement sur le texte"_fr},
    LigneMenu{kEdition, "mnuEffaceMotItem", "Suppression du mot sous le curseur"_fr, ctrl('T'),
              "Suppression du mot sous le curseur"_fr},
};

constexpr std::array kAffichageLignes = {
    LigneMenu{kAffichage, "MnuParleResultatItem", "Resultat de la ligne"_fr, ctrl('R'),
              "Resultat de la ligne"_fr},
    LigneMenu{kAffichage, "mnuFonctionItem", "Liste des fonctions : AltGr+F1"_fr, kSans,
              "Liste des fonctions"_fr},
    LigneMenu{kAffichage, "mnuTabulationAvantItem", "Tabulation avant"_fr, seule(kToucheF9),
              "Tabulation avant"_fr},
    LigneMenu{kAffichage, "mnuTabulationArriereItem", "Tabulation arrière"_fr, maj(kToucheF9),
              "Tabulation arrière"_fr},
    LigneMenu{kAffichage, "mnuChaineGaucheItem", "Chaine à gauche Alt Fleche Gauche"_fr, kSans,
              "chaine à gauche"_fr},
    LigneMenu{kAffichage, "mnuChaineDroiteItem", "Chaine à droite Alt Fleche Droite"_fr, kSans,
              "chaine à droite"_fr},
    LigneMenu{kAffichage, "mnuPoseRepereItem", "Pose d'un repère"_fr, ctrl(kToucheF1),
              "Pose d'un repère"_fr},
    LigneMenu{kAffichage, "mnuRepereItem", "Affichage au repère"_fr, maj(kToucheF1),
              "Affichage au repère"_fr},
    LigneMenu{kAffichage, "mnuXYItem", "Coordonnées du curseur"_fr, ctrl('G'),
              "coordonnées du curseur"_fr},
    LigneMenu{kAffichage, "mnuNumeroLigneItem", "Allez à un numéro de ligne"_fr, ctrl('Y'),
              "aller à un numéro de ligne"_fr},
    LigneMenu{kAffichage, "mnuSelectionToutItem", "Sélection de tout le texte"_fr, ctrl('A'),
              "sélection tout"_fr},
};

constexpr std::array kRechercheLignes = {
    LigneMenu{kRecherche, "mnuRechercherDebutItem", "Rechercher depuis le début"_fr,
              seule(kToucheF3), "recherche depuis le début du texte"_fr},
    LigneMenu{kRecherche, "mnuRechercherCurseurItem", "Rechercher depuis le curseur : AltGr+R"_fr,
              kSans, "Rechercher depuis le curseur"_fr},
    LigneMenu{kRecherche, "mnuRechercherArriereItem",
              "Rechercher depuis le curseur n arrière"_fr, ctrl('E'),
              "recherche en arrière depuis la position du curseur"_fr},
    LigneMenu{kRecherche, "mnuRechercherPrecedentItem", "Recherche précédente"_fr, maj(kToucheF3),
              "recherche précédente"_fr},
    LigneMenu{kRecherche, "mnuRechercherSuivantItem", "Recherche suivante"_fr, ctrl(kToucheF3),
              "recherche suivante"_fr},
};

// The items without words act in key-help mode as they always do.
constexpr std::array kOptionsLignes = {
    LigneMenu{kOptions, "mnuEntierItem", "Nombre entier"_fr, seule(kToucheF5), "Entier"_fr},
    LigneMenu{kOptions, "mnuFlottantItem", "Nombre flottant"_fr, seule(kToucheF7), "Flottant"_fr},
    LigneMenu{kOptions, "mnuPuissanceItem", "Nombre en puissance de 10"_fr, ctrl(kToucheF7),
              "Flottant en puissance de 10"_fr},
    LigneMenu{kOptions, "mnuHexaItem", "Nombre hexadécimal"_fr, maj(kToucheF7), "Hexadécimal"_fr},
    LigneMenu{kOptions, "mnuAngleItem", "Unité d'angle"_fr, seule(kToucheF8), "Unité d'angle"_fr},
    LigneMenu{kOptions, "mnuNombreDecimalItem", "Nombre de décimal"_fr, ctrl(kToucheF5),
              "nombre de décimal"_fr},
    LigneMenu{kOptions, "mnuDerniereFeuilleItem", "Affichage dernière feuille au lancement"_fr,
              kSans, ""},
    LigneMenu{kOptions, "mnuColonneMatrice", "Affichage matrice en Ligne/colonne"_fr, kSans, ""},
    LigneMenu{kOptions, "mnuLigneStat", "Résultat statistique restrein/complet"_fr, kSans, ""},
    LigneMenu{kOptions, "mnuCouleurEcran", "Choix de la couleur de l'écran"_fr, kSans, ""},
    LigneMenu{kOptions, "mnuPoliceEcran", "Choix de la police de l'écran"_fr, kSans, ""},
    LigneMenu{kOptions, "mnuPoliceImprimante", "Choix de la police de l'imprimante"_fr, kSans, ""},
};

constexpr std::array kOutilsLignes = {
    LigneMenu{kOutils, "mnuAnnulerItem", "&Annuler la dernière modification Controle Z"_fr, kSans,
              "annuler la dernière modification"_fr},
    LigneMenu{kOutils, "mnuRetablirItem", "&Rétablir la modification annulée Controle Maj Z"_fr, kSans,
              "rétablir la modification annulée"_fr},
    LigneMenu{kOutils, "mnuSonItem", "Son à la fin du calcul"_fr, ctrl(kToucheF8),
              "son à la fin du calcul"_fr},
};

constexpr std::array kAideLignes = {
    LigneMenu{kAide, "mnuAideToucheItem", "&Aide mémoire des touches"_fr, seule(kToucheF1), ""},
    LigneMenu{kAide, "mnuAideTxtItem", "&Guide"_fr, kSans, ""},
    LigneMenu{kAide, "mnuApropos", "A &propos"_fr, kSans, ""},
};

// The menus one behind the other.
std::vector<LigneMenu> toutes_les_lignes() {
    std::vector<LigneMenu> lignes;
    const auto ajoute = [&](const auto& menu) {
        lignes.insert(lignes.end(), menu.begin(), menu.end());
    };
    ajoute(kFichierLignes);
    ajoute(kEditionLignes);
    ajoute(kAffichageLignes);
    ajoute(kRechercheLignes);
    ajoute(kOptionsLignes);
    ajoute(kOutilsLignes);
    ajoute(kAideLignes);
    return lignes;
}

}  // namespace

const std::vector<LigneMenu>& lignes_menu() {
    static const std::vector<LigneMenu> lignes = toutes_les_lignes();
    return lignes;
}

const LigneMenu* ligne_menu(std::string_view nom) {
    for (const LigneMenu& ligne : lignes_menu())
        if (ligne.nom == nom) return &ligne;
    return nullptr;
}

void reinitialise_menus() {
    menus = Menus{};
    for (int i = 0; i <= kItemsRecents; ++i)
        menus.recents[static_cast<std::size_t>(i)] = {kNomRecents, i, "", false, false, false};
    for (const LigneMenu& ligne : lignes_menu())
        menus.items.push_back({ligne.nom, 0, std::string(ligne.libelle), false, true, true});
}

EtatItem* etat_item(std::string_view nom) {
    for (EtatItem& item : menus.items)
        if (item.nom == nom) return &item;
    return nullptr;
}

EtatItem* etat_recent(int index) {
    if (index < 1 || index > kItemsRecents) return nullptr;
    return &menus.recents[static_cast<std::size_t>(index)];
}

void pose_libelle(std::string_view nom, std::string_view libelle) {
    if (EtatItem* item = etat_item(nom)) item->libelle = libelle;
}

void pose_libelle_matrice(bool en_colonne) {
    pose_libelle("mnuColonneMatrice", en_colonne ? "affichage matrice ligne/colonne : en colonne"_fr
                                                 : "affichage matrice ligne/colonne : en ligne"_fr);
}

void pose_libelle_stat(bool restreint, std::string_view complet) {
    pose_libelle("mnuLigneStat",
                 restreint ? "Résultat statistique restreint/complet : restreint"_fr : complet);
}

void pose_libelle_son(bool avec) {
    pose_libelle("mnuSonItem",
                 avec ? "Son à la fin du calcul : oui"_fr : "Son à la fin du calcul : non"_fr);
}
