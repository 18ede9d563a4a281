// Writes the sorted values, poured into the lines that the data set had. Changes resultat_bloc of `feuille`.
#include "sheet/sorted_block.hpp"

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/failure.hpp"
#include "engine/number_text.hpp"
#include "functions/sorted_data.hpp"
#include "state/data_set.hpp"
#include "state/pass_result.hpp"

namespace {

// Writes one line of `compte` values, those after index `k`.
void ajoute_ligne(std::int16_t compte, std::ptrdiff_t& k) {
    std::string& bloc = resultat_bloc();
    for (int j = 1; j <= compte; ++j) {
        ++k;
        Tente(kMotsTri, [&] { bloc += FormatNombre(statistiques.table_x(k)); });
        if (j < compte) Tente(kMotsTri, [&] { bloc += ", "; });
    }
    Tente(kMotsTri, [&] { bloc += "\r\n"; });
}

}  // namespace

void ecrit_bloc_tri() noexcept {
    resultat_bloc().clear();
    std::ptrdiff_t k = 0;
    for (const std::int16_t compte : statistiques.table_statx) ajoute_ligne(compte, k);
    Tente(kMotsTri, [] { resultat_bloc() += kFinTri; });
}
