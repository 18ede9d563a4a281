// Every subsystem back at its initial state. Changes them all; the port stays as it was installed.
#include "shell/reset.hpp"

#include "documents/dialog.hpp"
#include "documents/documents.hpp"
#include "documents/recovery.hpp"
#include "documents/undo.hpp"
#include "editing/search.hpp"
#include "editing/words.hpp"
#include "platform/hooks.hpp"
#include "settings/settings.hpp"
#include "settings/tool_options.hpp"
#include "sheet/recalculation.hpp"
#include "shell/announcements.hpp"
#include "shell/colours.hpp"
#include "shell/commands.hpp"
#include "shell/events.hpp"
#include "shell/heard.hpp"
#include "shell/help_mode.hpp"
#include "shell/keys.hpp"
#include "shell/listening.hpp"
#include "shell/review.hpp"
#include "shell/spoken_line.hpp"
#include "shell/status.hpp"
#include "shell/study_commands.hpp"
#include "shell/window.hpp"
#include "study/sheet_study.hpp"

void reinitialise_tout() {
    crochets = {marque_modifie, AfficheStatus, [] { return !aide.aide_touche; }};
    reinitialise_calcul();
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
    entendus = Entendus{};
    ligne_ecoutee = LigneEcoutee{};
    attention = Attention{};
    intervalle_donne = IntervalleDonne{};
    etudes_gardees = EtudesGardees{};
    ecoute = Ecoute{};
    oublie_touches();
    couleurs = Couleurs{};
    const Fenetre neuve;   // named: g++ 12 takes the captions of a nameless one for unset when it optimises
    fenetre = neuve;
    remises = Remises{};
    reinitialise_menus();
}
