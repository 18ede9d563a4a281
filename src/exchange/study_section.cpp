// Headings, lists and tables of a study. Changes no state.
#include "exchange/study_section.hpp"

#include <cstddef>
#include <vector>

#include "base/codepage.hpp"
#include "exchange/html_text.hpp"

namespace {

// The words with decimal commas, as the rest of the page has them.
std::string mots(std::string_view texte) {
    std::string sortie(texte);
    for (std::size_t i = 1; i + 1 < sortie.size(); ++i)
        if (sortie[i] == '.' && est_chiffre(sortie[i - 1]) && est_chiffre(sortie[i + 1])) sortie[i] = ',';
    return html(sortie);
}

// What falls and rises is seen from afar too.
std::string_view fleche(std::string_view suite) {
    if (suite == "croît"_fr) return " <span aria-hidden=\"true\">\xE2\x86\x97</span>";
    if (suite == "décroît"_fr) return " <span aria-hidden=\"true\">\xE2\x86\x98</span>";
    return "";
}

std::string table_de_variations(const Tableau& tableau, const std::string& titre, char lettre) {
    std::string sortie =
        "<table class=\"variations\"><caption>Tableau de variations : " + titre + "</caption><thead><tr>";
    const std::string variable(1, lettre);
    for (const std::string& colonne : {variable, "f(" + variable + ")", std::string("puis f")})
        sortie += "<th scope=\"col\">" + colonne + "</th>";
    sortie += "</tr></thead><tbody>\n";
    const std::size_t egale = variable.size() + 3;   // "X = "
    for (const ColonneDeVariations& c : tableau)
        sortie += "<tr><th scope=\"row\">" + mots(std::string_view(c.lieu).substr(egale)) + "</th><td>" +
                  mots(c.valeur) + "</td><td>" + mots(c.suite) + std::string(fleche(c.suite)) + "</td></tr>\n";
    return sortie + "</tbody></table>\n";
}

}  // namespace

std::string section_d_etude(const EtudeDeFeuille& etude) {
    const std::vector<std::string> faits = faits_d_etude(etude);
    std::string sortie = "<section class=\"etude\"><h2>" + mots(faits.front()) + "</h2>\n<ul>\n";
    for (std::size_t i = 1; i < faits.size(); ++i) sortie += "<li>" + mots(faits[i]) + "</li>\n";
    sortie += "</ul>\n";
    const Tableau tableau = tableau_de_variations(etude);
    if (!tableau.empty()) sortie += table_de_variations(tableau, mots(etude.fonction.texte), etude.fonction.lettre);
    return sortie + "</section>\n";
}
