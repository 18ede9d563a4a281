// The commands of the menu Outils. Changes the sheet, `outils`, its file and the caption of the item.
#include "shell/tools.hpp"

#include "base/codepage.hpp"
#include "documents/undo.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "settings/tool_options.hpp"
#include "shell/menus.hpp"
#include "state/pass_result.hpp"
#include "state/variables.hpp"

void annule() {
    if (!defait_changement()) dit(kRienAAnnuler);
}

void retablit() {
    if (!refait_changement()) dit(kRienARetablir);
}

// The choice counts at once, and is heard; a file that can't be written is told after it.
void mnuSonItem() {
    outils.son = !outils.son;
    pose_libelle_son(outils.son);
    dit(outils.son ? "avec son"_fr : "sans son"_fr);
    ecrit_outils();
}

// A line that has no result makes the other sound.
void sonne_fin_de_calcul() {
    if (!outils.son) return;
    const bool echec = formule_en_erreur() || passe_refusee();
    port.boites.son(echec ? Son::echec : Son::reussite);
}
