// The table of all commands, and the calculation commands. Change the sheet through the pass.
#include "shell/commands.hpp"

#include <array>

#include "documents/open_documents.hpp"
#include "documents/printing.hpp"
#include "documents/saving.hpp"
#include "documents/undo.hpp"
#include "editing/lines.hpp"
#include "editing/search.hpp"
#include "editing/words.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "sheet/spoken_result.hpp"
#include "shell/colours.hpp"
#include "shell/help_mode.hpp"
#include "shell/options.hpp"
#include "shell/startup.hpp"
#include "shell/tools.hpp"
#include "shell/views.hpp"
#include "state/sheet.hpp"

namespace {

struct Commande {
    std::string_view nom;
    void (*execute)();
};

// The items of the menus, in the order of the tree.
constexpr std::array kItems = {
    Commande{"mnuNouveauItem", mnuNouveauItem},
    Commande{"mnuOuvrirItem", mnuOuvrirItem},
    Commande{"mnuFichierPrecedentItem", mnuFichierPrecedentItem},
    Commande{"mnuFichierSuivantItem", mnuFichierSuivantItem},
    Commande{"mnuEnregistrerItem", mnuEnregistrerItem},
    Commande{"mnuEnregistrerSousItem", mnuEnregistrerSousItem},
    Commande{"mnuFermerItem", mnuFermerItem},
    Commande{"mnuImprimer", mnuImprimer},
    Commande{"mnuParametreImprimer", mnuParametreImprimer},
    Commande{"mnuQuitterItem", quitter},

    Commande{"mnuCalculItem", mnuCalculItem},
    Commande{"mnuCalculColonneItem", mnuCalculColonneItem},
    Commande{"mnumodifLigneItem", mnumodifLigneItem},
    Commande{"mnumodifLigneSansDialItem", mnumodifLigneSansDialItem},
    Commande{"mnumodifTexteItem", mnumodifTexteItem},
    Commande{"mnuEffaceMotItem", mnuEffaceMotItem},

    Commande{"MnuParleResultatItem", MnuParleResultatItem},
    Commande{"mnuFonctionItem", AfficheFonction},
    Commande{"mnuTabulationAvantItem", mnuTabulationAvantItem},
    Commande{"mnuTabulationArriereItem", mnuTabulationArriereItem},
    Commande{"mnuChaineGaucheItem", mnuChaineGaucheItem},
    Commande{"mnuChaineDroiteItem", mnuChaineDroiteItem},
    Commande{"mnuPoseRepereItem", mnuPoseRepereItem},
    Commande{"mnuRepereItem", mnuRepereItem},
    Commande{"mnuXYItem", mnuXYItem},
    Commande{"mnuNumeroLigneItem", mnuNumeroLigneItem},
    Commande{"mnuSelectionToutItem", mnuSelectionToutItem},

    Commande{"mnuRechercherDebutItem", mnuRechercherDebutItem},
    Commande{"mnuRechercherCurseurItem", mnuRechercherCurseurItem},
    Commande{"mnuRechercherArriereItem", mnuRechercherArriereItem},
    Commande{"mnuRechercherPrecedentItem", mnuRechercherPrecedentItem},
    Commande{"mnuRechercherSuivantItem", mnuRechercherSuivantItem},

    Commande{"mnuEntierItem", mnuEntierItem},
    Commande{"mnuFlottantItem", mnuFlottantItem},
    Commande{"mnuPuissanceItem", mnuPuissanceItem},
    Commande{"mnuHexaItem", mnuHexaItem},
    Commande{"mnuAngleItem", mnuAngleItem},
    Commande{"mnuNombreDecimalItem", mnuNombreDecimalItem},
    Commande{"mnuDerniereFeuilleItem", mnuDerniereFeuilleItem},
    Commande{"mnuColonneMatrice", mnuColonneMatrice},
    Commande{"mnuLigneStat", mnuLigneStat},
    Commande{"mnuCouleurEcran", mnuCouleurEcran},
    Commande{"mnuPoliceEcran", mnuPoliceEcran},
    Commande{"mnuPoliceImprimante", mnuPoliceImprimante},

    Commande{"mnuAnnulerItem", annule},
    Commande{"mnuRetablirItem", retablit},
    Commande{"mnuSonItem", mnuSonItem},

    Commande{"mnuAideToucheItem", mnuAideToucheItem},
    Commande{"mnuAideTxtItem", mnuAideTxtItem},
    Commande{"mnuApropos", mnuApropos},
};

// The buttons, and the procedures that a key or another command calls.
constexpr std::array kAutres = {
    Commande{"CmdAngle", CmdAngle},
    Commande{"CmdVoxtab", CmdVoxtab},
    Commande{"CmdModifTexte", CmdModifTexte},
    Commande{"CmdQuitter", CmdQuitter},
    Commande{"recalcul", [] { recalcul(); }},
    Commande{"re_valeur", re_valeur},
    Commande{"calcul_colonne", calcul_colonne},
    Commande{"chaineGAUCHE", chaineGAUCHE},
    Commande{"chainedroite", chainedroite},
    Commande{"modifTexte", modifTexte},
    Commande{"AfficheFonction", AfficheFonction},
    Commande{"RangeFonction", RangeFonction},
    Commande{"RetourListe", RetourListe},
    Commande{"enregistrersous", [] { enregistrersous(); }},
    Commande{"quitter", quitter},
};

// Runs the command of that name if it is in the table.
template <std::size_t N>
bool execute_dans(const std::array<Commande, N>& table, std::string_view nom) {
    for (const Commande& commande : table) {
        if (commande.nom != nom) continue;
        Tente(kCommande, commande.execute);
        return true;
    }
    return false;
}

}  // namespace

void mnuCalculItem() { recalcul(); }
void mnuCalculColonneItem() { calcul_colonne(); }

void MnuParleResultatItem() {
    if (annonce_item("MnuParleResultatItem")) return;
    if (feuille.nombre_ligne < 1) return;
    dit(resultat_sous_curseur());
}

bool execute_commande(std::string_view nom) {
    return execute_dans(kItems, nom) || execute_dans(kAutres, nom);
}
