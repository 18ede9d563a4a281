// The result after the cursor's line. The table of the last pass tells it as long as the line is one that
// the pass wrote: lines above it and below it may have changed meanwhile.
#include "sheet/spoken_result.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/codepage.hpp"
#include "editing/lines.hpp"
#include "sheet/old_result.hpp"
#include "state/sheet.hpp"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t kInconnue = npos;

// True when a line of `texte` can end at `position`.
bool est_fin(std::string_view texte, std::size_t position) {
    return position == texte.size() || texte.substr(position).starts_with("\r\n");
}

// Number, from 0, of the line in the text of the last pass that stands unchanged in the present text: all
// above it or all below it is as it was. kInconnue when it is not one of the pass.
std::size_t ligne_ecrite(std::string_view actuel, const Etendue& ligne) {
    const std::string_view ancien = feuille.texte_ecrit;
    if (feuille.colonne_resultat.empty()) return kInconnue;
    if (ancien.starts_with(actuel.substr(0, ligne.fin)) && est_fin(ancien, ligne.fin))
        return lignes_closes(actuel.substr(0, ligne.debut));
    const std::size_t reste = actuel.size() - ligne.debut;
    if (reste > ancien.size() || !ancien.ends_with(actuel.substr(ligne.debut))) return kInconnue;
    const std::string_view dessus = ancien.substr(0, ancien.size() - reste);
    return dessus.empty() || dessus.ends_with("\r\n") ? lignes_closes(dessus) : kInconnue;
}

// What the table has for a line of the last pass.
std::string_view resultat_ecrit(std::string_view ligne, std::size_t numero) {
    if (numero >= feuille.colonne_resultat.size()) return {};
    const std::int32_t colonne = feuille.colonne_resultat[numero];
    if (colonne < 0) return feuille.resultat_ligne(-colonne);
    return colonne == 0 ? std::string_view() : ligne.substr(static_cast<std::size_t>(colonne));
}

// What stands after the last "=" of a line, with it, when the pass would cut the line there; "==" is one mark.
std::string_view resultat_lu(std::string_view ligne) {
    const std::string texte(sans_blancs(ligne));
    const std::size_t coupe = fin_gardee(texte);
    if (coupe == npos) return {};
    const std::size_t egal = texte.find('=', coupe), dernier = texte.rfind('=');
    if (dernier > egal + 1) return {};
    return sans_blancs(ligne).substr(egal);
}

}  // namespace

std::string_view resultat_sous_curseur(std::string_view texte, std::size_t curseur) {
    const Etendue ligne = etendue_autour(texte, std::min(curseur, texte.size()));
    const std::string_view mots = texte.substr(ligne.debut, ligne.fin - ligne.debut);
    const std::size_t numero = ligne_ecrite(texte, ligne);
    return numero == kInconnue ? resultat_lu(mots) : resultat_ecrit(mots, numero);
}
