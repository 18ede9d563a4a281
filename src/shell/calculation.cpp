// The calculation commands: the pass, the total of the lines, the result that is said.
#include "shell/calculation.hpp"

#include "platform/message.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "sheet/spoken_result.hpp"
#include "state/pass_result.hpp"

void mnuCalculItem() { recalcul(); }
void mnuCalculColonneItem() { calcul_colonne(); }

void MnuParleResultatItem() {
    if (lignes_de_la_feuille() < 1) return;
    dit(resultat_sous_curseur());
}
