// The commands that calculate, between the text control and the pass. Change the text of the port, the cursor
// and the changed flag of the current document.
#include "shell/calculation.hpp"

#include <cstddef>
#include <string>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "documents/documents.hpp"
#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "sheet/spoken_result.hpp"
#include "shell/results.hpp"
#include "shell/review.hpp"
#include "state/pass_result.hpp"
#include "state/variables.hpp"

namespace {

// Shows what a pass has given, with the cursor at the end of its line, and says that line. A text that could not
// be written whole leaves the user's as it was.
void montre_calcul(Calcul& calcul) {
    if (calcul.issue == Issue::ecrite) port.texte.pose_texte(std::move(calcul.texte));
    Tente(kRecalcul, [] { marque_modifie(); });
    port.texte.pose_selection(calcul.curseur, 0);
    Tente(kRecalcul, [&] { dit(calcul.message(port.texte.texte())); });
}

}  // namespace

void mnuCalculItem() {
    if (port.texte.texte().empty()) return souffle(kFeuilleVide);
    recalcul();
}

void mnuCalculColonneItem() {
    if (port.texte.texte().empty()) return souffle(kFeuilleVide);
    calcul_colonne();
}

// The message line has no words for a line without a result, nor any before the first calculation: a reader is told
// them then. A line that is empty is told as such.
void MnuParleResultatItem() {
    const std::string& texte = port.texte.texte();
    const std::string resultat(sans_blancs(resultat_sous_curseur(texte, port.texte.sel_start())));
    const bool calculee = lignes_de_la_feuille() >= 1;
    const bool ligne_vide = sans_blancs(extraitLigne(port.texte.sel_start())).empty();
    if (calculee) dit(resultat);
    if (resultat.empty() && !(calculee && ligne_vide)) return souffle(kPasDeResultat);
    if (!calculee) souffle(resultat);
}

void recalcul() noexcept {
    const std::string& texte = port.texte.texte();
    commence_attention();
    Calcul calcul = calcule_feuille(texte, port.texte.sel_start());
    const bool faite = calcul.issue == Issue::ecrite || calcul.issue == Issue::incomplete;
    if (faite) {
        garde_le_hasard();
        montre_calcul(calcul);
    }
    dit_attention(calcul.issue == Issue::ecrite);
}

void calcul_colonne() {
    if (port.texte.texte().empty()) return;
    note_calcul_en_colonne(true);
    recalcul();
    note_calcul_en_colonne(false);
    if (formule_en_erreur() || passe_refusee()) return;
    Total total = total_colonne(port.texte.texte());
    const std::size_t fin = total.texte.size();
    port.texte.pose_texte(std::move(total.texte));
    port.texte.pose_selection(fin, 0);
    dit(total.resultat);
}

void re_valeur() noexcept {
    if (lignes_de_la_feuille() == 0) return recalcul();
    recrit_resultats();
}
