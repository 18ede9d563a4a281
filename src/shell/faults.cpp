// The commands on the faults of a sheet.
#include "shell/faults.hpp"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/boxes.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/fault.hpp"
#include "shell/explained.hpp"
#include "shell/heard.hpp"
#include "shell/views.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

// A line of the sheet in bytes from 0, its line end not included.
struct Ligne {
    std::size_t debut;
    std::size_t fin;
    std::string_view mots(std::string_view texte) const { return texte.substr(debut, fin - debut); }
};

// The line that holds the byte `position`.
Ligne ligne_de(std::string_view texte, std::size_t position) {
    const std::size_t avant = position == 0 ? npos : texte.rfind("\r\n", position - 1);
    const std::size_t debut = avant == npos ? 0 : avant + 2;
    return {debut, std::min(texte.find("\r\n", debut), texte.size())};
}

// The line on which the calculation has failed is in error even when nothing stands after it.
bool est_en_erreur(std::string_view texte, const Ligne& ligne, const Morceau& faute) {
    const bool fautive = faute.debut != Morceau::kAilleurs && faute.debut >= ligne.debut && faute.debut <= ligne.fin;
    return fautive || !erreur_de_la_ligne(ligne.mots(texte)).empty();
}

// Goes to a line in error and says it: to the column of the fault where it is known, otherwise in front of the error.
void va_a_la_ligne(std::string_view texte, const Ligne& ligne, const Morceau& faute) {
    const std::string_view mots = ligne.mots(texte);
    const std::string_view erreur = erreur_de_la_ligne(mots);
    std::size_t place = ligne.debut;
    if (faute.debut != Morceau::kAilleurs && faute.debut >= ligne.debut && faute.debut <= ligne.fin)
        place = faute.debut;
    else if (const std::size_t egal = mots.rfind('=', mots.size() - erreur.size()); egal != npos)
        place += sans_blancs(mots.substr(0, egal)).size();
    const std::string dite(mots);   // the text of the port may move
    port.texte.pose_selection(place, 0);
    dit(dite);
}

// The message to be explained: the one that was just heard, the fault of the line, its old error, the fault of the
// last calculation, what was heard before.
std::string mots_a_expliquer(std::string_view guide) {
    const std::string entendu(dernier_entendu());
    const bool explique = entree_du_guide(guide, entendu) != npos;
    if (explique && entendus.frais) return entendu;
    const std::string_view texte = port.texte.texte();
    const Ligne ligne = ligne_de(texte, curseur());
    const Morceau faute = place_de_la_faute(texte);
    if (faute.debut != Morceau::kAilleurs && faute.debut >= ligne.debut && faute.debut <= ligne.fin)
        return std::string(mots_de_la_faute());
    if (const std::string_view erreur = erreur_de_la_ligne(ligne.mots(texte)); !erreur.empty())
        return std::string(erreur);
    return explique ? entendu : std::string(mots_de_la_faute());
}

// The fault's line, column and piece; its first words where the line ends with others.
std::string mots_de_la_place(std::string_view texte, const Morceau& faute) {
    const Ligne ligne = ligne_de(texte, faute.debut);
    const std::string_view piece = texte.substr(faute.debut, faute.fin - faute.debut);
    std::string mots("ligne "_fr);
    mots += chiffres(NumeroTxt(texte, faute.debut));
    mots.append(", colonne "_fr) += chiffres(static_cast<long long>(faute.debut - ligne.debut + 1));
    mots.append(" : ").append(piece.empty() ? kFinDuCalcul : piece);
    const std::string_view cause = mots_de_la_faute();
    if (!cause.empty() && !ligne.mots(texte).ends_with(cause)) mots.append(", ").append(cause);
    return mots;
}

}  // namespace

void mnuAllerFauteItem() {
    const Morceau faute = place_de_la_faute(port.texte.texte());
    if (faute.debut == Morceau::kAilleurs) return dit(kPasDeFaute);
    port.texte.pose_selection(faute.debut, 0);
    dit(mots_de_la_place(port.texte.texte(), faute));
}

void mnuExpliquerItem() {
    const std::string guide = texte_du_guide();
    const std::string mots = mots_a_expliquer(guide);
    if (mots.empty()) return dit(kPasDExplication);
    const std::size_t entree = entree_du_guide(guide, mots, mots == boites_de_passe.derniere);
    if (entree == npos) return dit(kPasDansLeGuide);
    // The way back leads to the column of the fault, when it is this line's.
    const std::string_view texte = port.texte.texte();
    const Ligne ligne = ligne_de(texte, curseur());
    const Morceau faute = place_de_la_faute(texte);
    if (faute.debut != Morceau::kAilleurs && faute.debut >= ligne.debut && faute.debut <= ligne.fin)
        port.texte.pose_selection(faute.debut, 0);
    montre_guide(guide, entree);
}

void mnuErreurSuivanteItem() {
    const std::string& texte = port.texte.texte();
    const Morceau faute = place_de_la_faute(texte);
    Ligne ligne = ligne_de(texte, curseur());
    while (ligne.fin < texte.size()) {
        ligne = ligne_de(texte, ligne.fin + 2);
        if (est_en_erreur(texte, ligne, faute)) return va_a_la_ligne(texte, ligne, faute);
    }
    dit(kPasPlusBas);
}

void mnuErreurPrecedenteItem() {
    const std::string& texte = port.texte.texte();
    const Morceau faute = place_de_la_faute(texte);
    Ligne ligne = ligne_de(texte, curseur());
    while (ligne.debut > 0) {
        ligne = ligne_de(texte, ligne.debut - 2);
        if (est_en_erreur(texte, ligne, faute)) return va_a_la_ligne(texte, ligne, faute);
    }
    dit(kPasPlusHaut);
}
