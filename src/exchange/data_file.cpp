// A table written as CSV. Changes no state.
#include "exchange/data_file.hpp"

#include <cmath>
#include <cstddef>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "exchange/data_number.hpp"

namespace {


// A heading; in quotes where a character of it would part cells or lines.
std::string cellule_de_titre(std::string_view titre) {
    if (titre.find_first_of(",;\"\r\n\t") == std::string_view::npos) return vers_utf8(titre);
    std::string cellule = "\"";
    for (const char c : titre) cellule += c == '"' ? std::string("\"\"") : std::string(1, c);
    return vers_utf8(cellule += '"');
}

// A number; what is none is written as the sheet writes it.
std::string cellule_de_nombre(double x, Convention convention) {
    if (!std::isfinite(x)) return texte_general(x);
    return texte_court(x, convention == Convention::virgule ? ',' : '.');
}

}  // namespace

std::string fichier_de_donnees(const TableDonnees& table, Convention convention) {
    const char separateur = convention == Convention::virgule ? ';' : ',';
    std::string texte(convention == Convention::virgule ? kMarqueUtf8 : std::string_view());
    for (std::size_t c = 0; c < table.titres.size(); ++c)
        (texte += c == 0 ? "" : std::string(1, separateur)) += cellule_de_titre(table.titres[c]);
    if (!table.titres.empty()) texte += "\r\n";
    for (std::size_t l = 0; l < table.lignes(); ++l) {
        for (std::size_t c = 0; c < table.colonnes.size(); ++c)
            (texte += c == 0 ? "" : std::string(1, separateur)) += cellule_de_nombre(table.colonnes[c][l], convention);
        texte += "\r\n";
    }
    return texte;
}
