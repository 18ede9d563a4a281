// Sorts the data set and gives the one of a call the shape of a line. Changes table_x and table_statx of
// `statistiques`.
#include "functions/sorted_data.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "platform/hooks.hpp"
#include "state/data_set.hpp"

namespace {

constexpr Procedure kTriTable{" sur triTable_x"_fr, true};

// A value and how often it follows itself.
struct Serie {
    double valeur;
    std::int32_t fois;
};

// The values of a table as series, in order of index.
std::vector<Serie> series(const TableRepetee& table) {
    std::vector<Serie> sortie;
    sortie.reserve(table.plages().size());
    std::int32_t fin = 0;
    for (const TableRepetee::Plage& p : table.plages())
        sortie.push_back({p.valeur, p.fin - std::exchange(fin, p.fin)});
    return sortie;
}

// The table in ascending order. An undefined value compares with nothing, so it keeps its place and
// the others are sorted around it.
TableRepetee triee(const TableRepetee& table) {
    const std::vector<Serie> places = series(table);
    std::vector<Serie> valeurs = places;
    std::erase_if(valeurs, [](const Serie& s) { return std::isnan(s.valeur); });
    std::stable_sort(valeurs.begin(), valeurs.end(),
                     [](const Serie& a, const Serie& b) { return a.valeur < b.valeur; });
    TableRepetee sortie;
    auto suivante = valeurs.begin();
    for (const Serie& place : places) {
        if (std::isnan(place.valeur)) {
            sortie.ajoute(place.valeur, place.fois);
            continue;
        }
        for (std::int32_t reste = place.fois; reste > 0;) {
            const std::int32_t pris = std::min(reste, suivante->fois);
            sortie.ajoute(suivante->valeur, pris);
            reste -= pris;
            if ((suivante->fois -= pris) == 0) ++suivante;
        }
    }
    return sortie;
}

// The shape of a data set that came from a call: one line. Its count is 16 bits wide like those of
// a block's lines, so a longer list is refused.
void forme_une_ligne() {
    Tente(kMotsTri, [] { statistiques.table_statx = Table<std::int16_t>(1); });
    Tente(kMotsTri, [] { statistiques.table_statx(1) = vers_16_tronque(borne_table_x()); });
}

}  // namespace

void TriTable_x() noexcept {
    Tente(kTriTable, [] { statistiques.table_x = triee(statistiques.table_x); });
}

void TriStatX() noexcept {
    TriTable_x();
    if (!statistiques.statx_trie) forme_une_ligne();
    crochets.donnees_triees();
}
