// The counts of the groups of a call. Changes p_formule.
#include "sheet/group_counts.hpp"

#include <string>
#include <utility>

#include "base/codepage.hpp"
#include "platform/boxes.hpp"
#include "state/variables.hpp"

namespace {

// The groups of a call, each with its frequency and with "," after it unless it is the last.
// `virgules` is the number of commas of a group whose frequency is missing.
std::string complete_groupes(std::string_view groupes, int virgules) {
    std::string sortie;
    sortie.reserve(2 * groupes.size());
    int compte = 0;
    for (const char c : groupes) {
        if (c == ';' || c == ')') {
            if (compte == virgules) sortie += ",1";
            compte = 0;
            if (c == ';') sortie += ',';
            continue;
        }
        if (c == ',') ++compte;
        sortie += c;
    }
    return sortie;
}

}  // namespace

bool TestEffectif(std::string_view NomStat) {
    const std::string& formule = formule_lue();
    const std::size_t ouvrante = formule.find('(');
    if (ouvrante == std::string::npos) return false;
    const std::size_t fermante = formule.find(')');
    if (fermante == std::string::npos) {
        montre_boite(std::string("manque ) sur "_fr).append(NomStat));
        return false;
    }
    std::string_view groupes;
    if (fermante > ouvrante)
        groupes = std::string_view(formule).substr(ouvrante + 1, fermante - ouvrante);
    std::string nouvelle = formule.substr(0, ouvrante + 1);
    nouvelle += complete_groupes(groupes, NomStat.ends_with('X') ? 0 : 1);
    nouvelle.append(formule, fermante);
    formule_lue() = std::move(nouvelle);
    return true;
}
