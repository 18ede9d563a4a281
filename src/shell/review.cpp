// The commands on what the check of the sheet finds.
#include "shell/review.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "documents/working_copies.hpp"
#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "settings/tool_options.hpp"
#include "shell/menus.hpp"
#include "verification/check.hpp"

Attention attention;

namespace {

// The place of a finding, or of the cursor, in the order of the sheet.
using Place = std::pair<int, int>;

Place place_de(const Constat& c) { return {c.ligne, c.colonne}; }

Place place_du_curseur() {
    const std::size_t ici = curseur();
    const std::string& texte = port.texte.texte();
    const Etendue ligne = etendue_autour(texte, ici);
    return {numero_de_ligne(texte, ici), static_cast<int>(ici - ligne.debut + 1)};
}

// Checks the sheet as it stands. False, and said, when that can't be.
bool verifie_ici() {
    verifie_feuille(port.texte.texte());
    if (verification.arretee) dit(kPasVerifiee);
    return !verification.arretee;
}

// Puts the cursor on the finding and says it.
void va_au_constat(const Constat& constat) {
    const Etendue ligne = etendue_ligne(port.texte.texte(), constat.ligne);
    const std::size_t place = ligne.debut + static_cast<std::size_t>(constat.colonne - 1);
    port.texte.pose_selection(std::min(place, ligne.fin), 0);
    dit(phrase(constat));
}

// "3 constats, 2 faux probables".
std::string compte() {
    std::string texte = combien(verification.constats.size(), "constat"_fr, "constats"_fr);
    const std::size_t graves = faux_probables(verification.constats);
    if (graves > 0) (texte += ", ") += combien(graves, "faux probable"_fr, "faux probables"_fr);
    return texte;
}

// The words, and how many lines the calculation refuses.
std::string avec_erreurs(std::string mots) {
    const auto erreurs = static_cast<std::size_t>(verification.lignes_en_erreur);
    if (erreurs > 0) (mots += ", ") += combien(erreurs, "ligne en erreur"_fr, "lignes en erreur"_fr);
    return mots;
}

// What tells a finding from another, wherever its line stands.
std::string cle(const Constat& c) { return std::string(nom_constat(c.genre)) + ' ' + c.morceau; }

// The grave findings that no calculation of this sheet has warned of yet; from now on they are known.
std::vector<const Constat*> nouveaux_constats() {
    std::vector<std::string>& avertis = attention.connus[documents.identite(documents.document_courant)];
    std::vector<const Constat*> nouveaux;
    std::vector<std::string> connus;
    for (const Constat& c : verification.constats) {
        if (gravite(c.genre) != Gravite::faux_probable) continue;
        connus.push_back(cle(c));
        if (!std::ranges::binary_search(avertis, connus.back())) nouveaux.push_back(&c);
    }
    std::ranges::sort(connus);
    avertis = std::move(connus);
    return nouveaux;
}

}  // namespace

void mnuVerifierItem() {
    if (!verifie_ici()) return;
    if (verification.constats.empty()) return dit(avec_erreurs(std::string(kRienASignaler)));
    dit(avec_erreurs(compte()));
    va_au_constat(verification.constats.front());
}

void mnuConstatSuivantItem() {
    if (!verifie_ici()) return;
    const Place ici = place_du_curseur();
    const auto suivant =
        std::ranges::find_if(verification.constats, [&](const Constat& c) { return place_de(c) > ici; });
    if (suivant == verification.constats.end()) return dit(kPasDeConstatPlusBas);
    va_au_constat(*suivant);
}

void mnuConstatPrecedentItem() {
    if (!verifie_ici()) return;
    const Place ici = place_du_curseur();
    const auto premier =
        std::ranges::find_if(verification.constats, [&](const Constat& c) { return place_de(c) >= ici; });
    if (premier == verification.constats.begin()) return dit(kPasDeConstatPlusHaut);
    va_au_constat(*(premier - 1));
}

void mnuAttentionItem() {
    outils.attention = !outils.attention;
    outils.attention_choisie = true;
    pose_libelle_attention(outils.attention);
    dit(outils.attention ? "avec attention"_fr : "sans attention"_fr);
    ecrit_outils();
}

void commence_attention() {
    if (outils.attention) commence_surveillance();
}

void dit_attention(bool ecrite) {
    if (!outils.attention) return;
    finit_surveillance();
    if (!feuille_montree()) return;   // the guide was calculated
    Tente(kCommande, [&] {
        const std::vector<const Constat*> nouveaux = nouveaux_constats();
        if (nouveaux.empty()) return;
        std::string texte("attention ligne "_fr);
        texte += chiffres(ecrite ? nouveaux.front()->ligne_ecrite : nouveaux.front()->ligne);
        if (nouveaux.size() > 1)
            texte.append(" et "_fr) += combien(nouveaux.size() - 1, "autre constat"_fr, "autres constats"_fr);
        dit(texte);
    });
}
