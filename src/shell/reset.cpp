// Every subsystem back at its initial state. Changes them all; the port stays as it was installed.
#include "shell/reset.hpp"

#include "base/boxes.hpp"
#include "documents/dialog.hpp"
#include "documents/open_documents.hpp"
#include "documents/recovery.hpp"
#include "documents/settings.hpp"
#include "documents/tool_options.hpp"
#include "editing/search.hpp"
#include "editing/undo.hpp"
#include "editing/words.hpp"
#include "engine/context.hpp"
#include "matrix/definition.hpp"
#include "matrix/store.hpp"
#include "platform/patience.hpp"
#include "sheet/sheet.hpp"
#include "shell/announcements.hpp"
#include "shell/colours.hpp"
#include "shell/events.hpp"
#include "shell/help_mode.hpp"
#include "shell/keys.hpp"
#include "shell/menu_table.hpp"
#include "shell/message.hpp"
#include "shell/window.hpp"
#include "stats/data.hpp"

void reinitialise_tout() {
    reinitialise_moteur();
    boites_de_passe = BoitesDePasse{};
    feuille = Feuille{};
    matrices = Matrices{};
    definition_de_matrice = DefinitionMatrice{};
    statistiques = Statistiques{};
    ligne_message = LigneMessage{};
    annonces = Annonces{};
    reglages = Reglages{};
    documents = Documents{};
    reprise = Reprise{};
    dlg = Dlg{};
    outils = OptionsOutils{};
    recherche = Recherche{};
    historique = Historique{};
    caracteres = Caracteres{};
    aide = Aide{};
    oublie_touches();
    couleurs = Couleurs{};
    fenetre = Fenetre{};
    patience = Patience{};
    remises = Remises{};
    reinitialise_menus();
}
