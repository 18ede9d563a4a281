// The commands on the faults of a sheet.
#include "shell/faults.hpp"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/boxes.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/fault.hpp"
#include "shell/explained.hpp"
#include "shell/heard.hpp"
#include "shell/views.hpp"
#include "verification/sign_words.hpp"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t kMorceauEntendu = 100;   // characters of a piece that are said

bool dans_la_ligne(const Morceau& faute, const Etendue& ligne) {
    return faute.debut != Morceau::kAilleurs && faute.debut >= ligne.debut && faute.debut <= ligne.fin;
}

// The line on which the calculation has failed is in error even when nothing stands after it.
bool est_en_erreur(std::string_view texte, const Etendue& ligne, const Morceau& faute) {
    return dans_la_ligne(faute, ligne) || !erreur_de_la_ligne(mots_de(texte, ligne)).empty();
}

// Goes to a line in error and says it: to the column of the fault where it is known, otherwise in front of the error.
void va_a_la_ligne(std::string_view texte, const Etendue& ligne, const Morceau& faute) {
    const std::string_view mots = mots_de(texte, ligne);
    const std::string_view erreur = erreur_de_la_ligne(mots);
    std::size_t place = ligne.debut;
    if (dans_la_ligne(faute, ligne))
        place = faute.debut;
    else if (const std::size_t egal = mots.rfind('=', mots.size() - erreur.size()); egal != npos)
        place += sans_blancs(mots.substr(0, egal)).size();
    const std::string dite(mots);   // the text of the port may move
    port.texte.pose_selection(place, 0);
    dit(dite);
}

// The piece as it is to be heard: signs alone are called by their names, for a reader may pass over them.
std::string mots_du_morceau(std::string_view morceau) {
    if (morceau.empty()) return std::string(kFinDuCalcul);
    if (sans_blancs(morceau).empty()) return "blanc";
    if (morceau == "\t") return "tabulation";
    const bool signes = std::ranges::none_of(morceau, [](char c) { return est_lettre_de_mot(c) || est_chiffre(c); });
    return signes ? signes_en_mots(morceau) : std::string(morceau);
}

// The same, at most so much of it as can be listened to, and how much follows.
std::string debut_du_morceau(std::string_view morceau) {
    if (morceau.size() <= kMorceauEntendu) return mots_du_morceau(morceau);
    return mots_du_morceau(morceau.substr(0, kMorceauEntendu))
        .append(", et ").append(chiffres(static_cast<long long>(morceau.size() - kMorceauEntendu)))
        .append(" autres caractères"_fr);
}

// The fault's line, column and piece; its first words where the line ends with others.
std::string mots_de_la_place(std::string_view texte, const Morceau& faute) {
    const Etendue ligne = etendue_autour(texte, faute.debut);
    const std::string_view piece = texte.substr(faute.debut, faute.fin - faute.debut);
    std::string mots("ligne "_fr);
    mots += chiffres(numero_de_ligne(texte, faute.debut));
    mots.append(", colonne "_fr) += chiffres(static_cast<long long>(faute.debut - ligne.debut + 1));
    mots.append(" : ").append(debut_du_morceau(piece));
    const std::string_view cause = mots_de_la_faute();
    if (!cause.empty() && !mots_de(texte, ligne).ends_with(cause)) mots.append(", ").append(cause);
    return mots;
}

// What only shows the way to a line gives way to the fault on it: the words of F12, the warning of a calculation.
bool montre_le_chemin(std::string_view mots, std::string_view texte, const Morceau& faute) {
    if (mots.starts_with("attention ligne ")) return true;
    return faute.debut != Morceau::kAilleurs && mots == mots_de_la_place(texte, faute);
}

// The words to be explained: the message or box that was just heard, the fault of the line, its old error, what was
// heard before, the fault of the last calculation.
Dit mots_a_expliquer(std::string_view guide) {
    const Dit entendu = dernier_entendu();
    const std::string_view texte = port.texte.texte();
    const Etendue ligne = etendue_autour(texte, curseur());
    const Morceau faute = place_de_la_faute(texte);
    const bool explique = entree_du_guide(guide, entendu.texte, entendu.boite) != npos;
    if (explique && entendus.frais && !montre_le_chemin(entendu.texte, texte, faute)) return entendu;
    const std::string de_la_faute(mots_de_la_faute());
    const Dit derniere_faute{de_la_faute, de_la_faute == boites_de_passe.derniere};
    if (dans_la_ligne(faute, ligne)) return derniere_faute;
    if (const std::string_view erreur = erreur_de_la_ligne(mots_de(texte, ligne)); !erreur.empty())
        return {std::string(erreur)};
    return explique ? entendu : derniere_faute;
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
    const Dit mots = mots_a_expliquer(guide);
    if (mots.texte.empty()) return dit(kPasDExplication);
    const std::size_t entree = entree_du_guide(guide, mots.texte, mots.boite);
    if (entree == npos) return dit(kPasDansLeGuide);
    // The way back leads to the column of the fault, when it is this line's.
    const std::string_view texte = port.texte.texte();
    const Etendue ligne = etendue_autour(texte, curseur());
    const Morceau faute = place_de_la_faute(texte);
    if (dans_la_ligne(faute, ligne))
        port.texte.pose_selection(faute.debut, 0);
    montre_guide(guide, entree);
}

void mnuErreurSuivanteItem() {
    const std::string& texte = port.texte.texte();
    const Morceau faute = place_de_la_faute(texte);
    Etendue ligne = etendue_autour(texte, curseur());
    while (ligne.fin < texte.size()) {
        ligne = etendue_autour(texte, ligne.fin + 2);
        if (est_en_erreur(texte, ligne, faute)) return va_a_la_ligne(texte, ligne, faute);
    }
    dit(kPasPlusBas);
}

void mnuErreurPrecedenteItem() {
    const std::string& texte = port.texte.texte();
    const Morceau faute = place_de_la_faute(texte);
    Etendue ligne = etendue_autour(texte, curseur());
    while (ligne.debut > 0) {
        ligne = etendue_autour(texte, ligne.debut - 2);
        if (est_en_erreur(texte, ligne, faute)) return va_a_la_ligne(texte, ligne, faute);
    }
    dit(kPasPlusHaut);
}
