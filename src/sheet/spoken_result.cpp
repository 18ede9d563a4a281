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

// Which lines of the present text are lines of the last pass that stand unchanged: all above them or all below them
// is as it was.
class Correspondance {
public:
    explicit Correspondance(std::string_view actuel)
        : actuel_(actuel), ancien_(feuille.texte_ecrit), connue_(!feuille.colonne_resultat.empty()) {
        if (!connue_) return;
        const std::size_t commun = std::min(actuel.size(), ancien_.size());
        const auto fin = actuel.begin() + static_cast<std::ptrdiff_t>(commun);
        dessus_ = static_cast<std::size_t>(std::mismatch(actuel.begin(), fin, ancien_.begin()).first - actuel.begin());
        const auto arriere = std::mismatch(actuel.rbegin(), actuel.rbegin() + static_cast<std::ptrdiff_t>(commun),
                                           ancien_.rbegin());
        dessous_ = static_cast<std::size_t>(arriere.first - actuel.rbegin());
        decalage_ = static_cast<std::ptrdiff_t>(lignes_closes(ancien_)) -
                    static_cast<std::ptrdiff_t>(lignes_closes(actuel));
    }

    // Number, from 0, of the line in the text of the pass; `rang` is its number in the present text. kInconnue when
    // it is not one of the pass.
    std::size_t ligne_ecrite(const Etendue& ligne, std::size_t rang) const {
        if (!connue_) return kInconnue;
        if (ligne.fin <= dessus_ && est_fin_de_ligne(ancien_, ligne.fin)) return rang;
        const std::size_t reste = actuel_.size() - ligne.debut;
        if (reste > dessous_) return kInconnue;
        const std::string_view avant = ancien_.substr(0, ancien_.size() - reste);
        const bool debut_de_ligne = avant.empty() || avant.ends_with("\r\n");
        return debut_de_ligne ? static_cast<std::size_t>(static_cast<std::ptrdiff_t>(rang) + decalage_) : kInconnue;
    }

private:
    std::string_view actuel_, ancien_;
    bool connue_;
    std::size_t dessus_ = 0, dessous_ = 0;   // bytes that are the same from the beginning, and from the end
    std::ptrdiff_t decalage_ = 0;            // lines that the text of the pass has more
};

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
    std::string_view resultat;
    pour_chaque_resultat(texte, ligne.debut, ligne.fin, [&](const Etendue&, std::string_view r) { resultat = r; });
    return resultat;
}

void pour_chaque_resultat(std::string_view texte, std::size_t debut, std::size_t fin,
                          const std::function<void(const Etendue&, std::string_view)>& recoit) {
    const Correspondance correspondance(texte);
    std::size_t rang = lignes_closes(texte.substr(0, debut));
    for (Etendue ligne{debut, debut}; ligne.debut <= fin; ligne.debut = ligne.fin + 2, ++rang) {
        ligne.fin = std::min(texte.find("\r\n", ligne.debut), texte.size());
        const std::string_view mots = mots_de(texte, ligne);
        const std::size_t numero = correspondance.ligne_ecrite(ligne, rang);
        recoit(ligne, numero == kInconnue ? resultat_lu(mots) : resultat_ecrit(mots, numero));
        if (ligne.fin >= texte.size()) return;
    }
}
