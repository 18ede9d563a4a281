// Compares the lines of a report with those of the sheet. Changes the report alone.
#include "exchange/shown_results.hpp"

#include <algorithm>
#include <cstddef>

namespace {

using Lignes = std::vector<std::string_view>;

// The first line that belongs to the note `i`, and the first behind it.
struct Etendue { std::size_t debut, fin; };
Etendue etendue(const Rapport& rapport, std::size_t i, std::size_t lignes) {
    const auto rang = [&](std::size_t note) {
        return std::min(static_cast<std::size_t>(rapport.lignes[note].numero) - 1, lignes);
    };
    return {rang(i), i + 1 < rapport.lignes.size() ? rang(i + 1) : lignes};
}

// The line without its result.
std::string_view tete(std::string_view ligne, std::string_view resultat) {
    return ligne.substr(0, ligne.size() - (ligne.ends_with(resultat) ? resultat.size() : 0));
}

// Whether the sheet shows something else for the lines of the note `i`. What isn't shown yet contradicts nothing.
bool montre_autre(const Rapport& rapport, std::size_t i, const Lignes& lignes, const Lignes& montrees) {
    const auto [debut, fin] = etendue(rapport, i, lignes.size());
    if (debut >= fin) return false;
    const std::string_view premiere = lignes[debut], sans = tete(premiere, rapport.lignes[i].resultat);
    const auto est_montree = [&](std::string_view ligne) {
        return std::find(montrees.begin(), montrees.end(), ligne) != montrees.end();
    };
    if (!est_montree(premiere)) return !est_montree(sans);
    return lignes.size() == montrees.size() && !std::equal(lignes.begin() + static_cast<std::ptrdiff_t>(debut),
                                                           lignes.begin() + static_cast<std::ptrdiff_t>(fin),
                                                           montrees.begin() + static_cast<std::ptrdiff_t>(debut));
}

}  // namespace

std::vector<std::string_view> lignes_du_texte(std::string_view texte) {
    Lignes lignes;
    for (std::size_t debut = 0;;) {
        const std::size_t fin = std::min(texte.find("\r\n", debut), texte.size());
        lignes.push_back(texte.substr(debut, fin - debut));
        if (fin == texte.size()) return lignes;
        debut = fin + 2;
    }
}

bool contredit(const Rapport& rapport, std::string_view montre) {
    const bool tire =
        std::any_of(rapport.lignes.begin(), rapport.lignes.end(), [](const LigneRapport& l) { return l.hasard; });
    if (!tire || rapport.texte == montre) return false;
    const Lignes lignes = lignes_du_texte(rapport.texte), montrees = lignes_du_texte(montre);
    for (std::size_t i = 0; i < rapport.lignes.size(); ++i)
        if (rapport.lignes[i].hasard && montre_autre(rapport, i, lignes, montrees)) return true;
    return false;
}

void montre_ce_qui_est_ecrit(Rapport& rapport, const std::string& montre) {
    const std::string calcule = rapport.texte;
    const Lignes lignes = lignes_du_texte(calcule), montrees = lignes_du_texte(montre);
    if (lignes.size() != montrees.size()) return;
    for (std::size_t i = 0; i < rapport.lignes.size(); ++i) {
        LigneRapport& ligne = rapport.lignes[i];
        const auto [debut, fin] = etendue(rapport, i, lignes.size());
        for (std::size_t k = debut; k < fin; ++k) ligne.copiee = ligne.copiee || lignes[k] != montrees[k];
        if (debut >= fin || lignes[debut] == montrees[debut]) continue;
        const std::string_view sans = tete(lignes[debut], ligne.resultat);
        if (montrees[debut].starts_with(sans)) ligne.resultat = montrees[debut].substr(sans.size());
    }
    rapport.texte = montre;
}
