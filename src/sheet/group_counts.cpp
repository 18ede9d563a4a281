// The counts of the groups of a call. Changes p_formule.
#include "sheet/group_counts.hpp"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "platform/boxes.hpp"
#include "sheet/observer.hpp"
#include "state/variables.hpp"

namespace {

// The groups of a call, each with its frequency and with "," after it unless it is the last.
// `virgules` is the number of commas of a group whose frequency is missing. Whoever looks on is told of each
// character where it comes from.
std::string complete_groupes(std::string_view groupes, int virgules) {
    std::string sortie;
    sortie.reserve(2 * groupes.size());
    int compte = 0;
    for (std::size_t i = 0; i < groupes.size(); ++i) {
        const char c = groupes[i];
        if (c == ';' || c == ')') {
            if (compte == virgules) sortie += ",1";
            compte = 0;
            if (c == ';') sortie += ',';
        } else {
            if (c == ',') ++compte;
            sortie += c;
        }
        if (observation != nullptr) observation->groupes.resize(sortie.size(), i);
    }
    return sortie;
}

// Makes the places of the groups those of the whole formula: its head stands as it was, and so does its end.
void acheve_places(std::size_t tete, std::size_t fermante, std::size_t taille) {
    if (observation == nullptr) return;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < tete; ++i) places.push_back(i);
    for (const std::size_t place : observation->groupes) places.push_back(tete + place);
    for (std::size_t i = fermante; places.size() < taille; ++i) places.push_back(i);
    observation->groupes = std::move(places);
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
    if (observation != nullptr) observation->groupes.clear();
    nouvelle += complete_groupes(groupes, NomStat.ends_with('X') ? 0 : 1);
    nouvelle.append(formule, fermante);
    acheve_places(ouvrante + 1, fermante, nouvelle.size());
    formule_lue() = std::move(nouvelle);
    return true;
}
