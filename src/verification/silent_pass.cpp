// The pass with one who looks on, while the program's own calculation stands aside.
#include "verification/silent_pass.hpp"

#include "platform/patience.hpp"
#include "sheet/aside.hpp"
#include "sheet/recalculation.hpp"
#include "state/sheet.hpp"

bool parcourt_en_silence(const std::string& texte, void (*ligne)(const LigneObservee& observee)) {
    Observation regard;
    regard.ligne = ligne;
    regard.poursuit = true;
    const CalculAPart a_part;
    observation = &regard;
    calcule_feuille(texte, 0);
    return !feuille.passe_refusee && !patience.abandonnee;
}
