// The tables of the data set and their one instance, `statistiques`.
#include "state/data_set.hpp"

#include <algorithm>
#include <bit>
#include <cmath>

Statistiques statistiques;

// The range in which an index lies. Refuses an index outside the table.
const TableRepetee::Plage& TableRepetee::plage(std::ptrdiff_t indice) const {
    if (indice < 1 || indice > taille()) echoue(kIndice);
    return *std::partition_point(plages_.begin(), plages_.end(),
                                 [indice](const Plage& p) { return p.fin < indice; });
}

// Fills with `x` from after the last index to `fin`. A value that continues the last range, to the
// bit, takes no memory.
void TableRepetee::allonge(double x, std::int32_t fin) {
    const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
    if (!plages_.empty() && bits(plages_.back().valeur) == bits(x))
        plages_.back().fin = fin;
    else
        plages_.push_back({x, fin});
}

void TableRepetee::redimensionne(std::int32_t n) {
    if (n < 0) echoue(kIndice);
    if (n > taille()) {
        allonge(0, n);
        return;
    }
    if (n == 0) {
        plages_.clear();
        return;
    }
    while (plages_.size() > 1 && plages_[plages_.size() - 2].fin >= n) plages_.pop_back();
    plages_.back().fin = n;
}

void TableRepetee::remplit(std::int32_t debut, double x) {
    const std::int32_t fin = taille();
    if (debut > fin) return;
    if (debut < 1) echoue(kIndice);
    redimensionne(debut - 1);
    allonge(x, fin);
}

void TableRepetee::ajoute(double x, std::int32_t fois) {
    if (fois > 0) allonge(x, taille() + fois);
}

std::int32_t indice_table(double x) {
    const double r = std::nearbyint(x);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) echoue(kDepassement);
    return static_cast<std::int32_t>(r);
}
