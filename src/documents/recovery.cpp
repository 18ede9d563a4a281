// Recovery files while the program runs: which sheets have one, and when it is written anew. Changes
// `reprise` and orders files; a failure is told once, in the message line, and stops nobody's typing.
#include "documents/recovery.hpp"

#include <set>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "documents/working_copies.hpp"
#include "platform/message.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"

Reprise reprise;

namespace {

bool modifiee(int rang) { return documents.document_modifie(rang) != 0; }

// The name in the recovery file: none for the untitled sheet, however its name is padded.
std::string nom_fiche(int rang) {
    const std::string& nom = reglages.table_ini(rang).nom;
    return sans_blancs(nom) == sans_blancs(reglages.nom_sanstitre) ? "" : nom;
}

// Orders the file of a sheet. What it holds is made by the one who writes it.
void commande_fichier(FeuilleReprise& f) {
    f.fiche.numero = ++reprise.numero;
    port.reprise.ecrit(f.chemin, [fiche = f.fiche, texte = f.texte] { return forme_reprise(fiche, *texte); });
}

// The sheet's entry, made when there is none.
FeuilleReprise& entree(std::uint64_t identite) {
    FeuilleReprise& f = reprise.feuilles[identite];
    if (f.chemin.empty()) {
        if (reprise.marque.empty()) reprise.marque = port.reprise.marque();
        f.chemin = dossier_secours() + reprise.marque + "-" +
                   chiffres(static_cast<long long>(identite)) + ".VXT";
    }
    return f;
}

// What the recovery file of that sheet has to say, but for its number.
FicheReprise fiche_de(int rang, std::size_t curseur, std::size_t longueur) {
    return {nom_fiche(rang), static_cast<std::uint32_t>(rang), curseur, longueur, true, 0,
            documents.base(rang)};
}

// An untitled sheet without a character has nothing to lose.
bool sans_rien(int rang, const std::string& texte) {
    return texte.empty() && nom_fiche(rang).empty() && !reprise.feuilles.contains(documents.identite(rang));
}

// Orders the sheet's file when this isn't what it has, or what the sheet's own file has.
void releve_feuille(int rang, const std::string& texte, FicheReprise fiche, bool autrement) {
    FeuilleReprise& f = entree(documents.identite(rang));
    const bool meme_texte = f.texte && *f.texte == texte;
    fiche.numero = f.fiche.numero;
    if (meme_texte && (f.enregistree || (fiche == f.fiche && !autrement && !reprise.a_refaire))) return;
    if (!meme_texte) f.texte = std::make_shared<const std::string>(texte);
    f.fiche = std::move(fiche);
    f.enregistree = false;
    commande_fichier(f);
}

// The sheet that `txt` shows. Its number becomes the highest when another one was shown before.
void releve_montree(int rang) {
    const std::string& texte = port.texte.texte();
    if (sans_rien(rang, texte)) return;
    const std::uint64_t identite = documents.identite(rang);
    const bool autrement = std::exchange(reprise.montree, identite) != identite;
    releve_feuille(rang, texte, fiche_de(rang, port.texte.sel_start(), port.texte.sel_length()), autrement);
}

// A sheet that isn't shown keeps the text and the cursor that it was left with.
void releve_autre(int rang) {
    const std::string& texte = documents.texte(rang);
    if (sans_rien(rang, texte)) return;
    const article& ligne = reglages.table_ini(rang);
    releve_feuille(rang, texte, fiche_de(rang, position_gardee(ligne.champ1), position_gardee(ligne.champ2)), false);
}

// Files of sheets that don't differ from their own file any more, or aren't open, go.
void efface_inutiles() {
    std::set<std::uint64_t> gardees;
    for (int rang = 1; rang <= documents.nombre_document; ++rang)
        if (modifiee(rang)) gardees.insert(documents.identite(rang));
    std::erase_if(reprise.feuilles, [&](const auto& paire) {
        if (gardees.contains(paire.first)) return false;
        if (!paire.second.enregistree) port.reprise.efface(paire.second.chemin);
        return true;
    });
}

// A file could not be written: told once, until one can be again.
void dit_echec() {
    const int echec = port.reprise.echec();
    reprise.a_refaire = echec != 0;
    if (echec != 0 && !reprise.echec_dit) {
        dit(echec == kDisquePlein
                ? "disque plein, pas de copie de secours, enregistrez votre feuille"_fr
                : "pas de copie de secours, enregistrez votre feuille"_fr);
        port.fenetre.montre();
    }
    reprise.echec_dit = echec != 0;
}

void releve() {
    efface_inutiles();
    for (int rang = 1; rang <= documents.nombre_document; ++rang) {
        if (!modifiee(rang)) continue;
        if (rang == documents.document_courant && feuille_montree())
            releve_montree(rang);
        else
            releve_autre(rang);
    }
    dit_echec();
}

// Whether a changed sheet is there whose file may have to be written.
bool a_relever() {
    return reprise.a_refaire || modifiee(documents.document_courant);
}

// Recovery is a help: where memory doesn't suffice for it the program goes on without.
template <class Action>
void sans_defaillance(Action&& action) noexcept {
    try {
        std::forward<Action>(action)();
    } catch (...) {
        reprise.a_refaire = true;
    }
}

}  // namespace

std::string dossier_secours() { return ajoutbackslash(reglages.dossier_programme + "secours"); }
std::string dossier_reprise() { return ajoutbackslash(reglages.dossier_programme + "reprise"); }

void releve_reprises() noexcept {
    if (reprise.commandes == 0) sans_defaillance(releve);
}

void suit_reprises() noexcept {
    if (reprise.commandes != 0) return;
    sans_defaillance([] {
        efface_inutiles();
        if (a_relever()) port.reprise.bientot(releve_reprises);
    });
}

void note_enregistree(int rang) noexcept {
    sans_defaillance([&] {
        const auto place = reprise.feuilles.find(documents.identite(rang));
        if (place == reprise.feuilles.end() || place->second.enregistree) return;
        place->second.enregistree = true;
        port.reprise.efface(place->second.chemin);
    });
}

void efface_reprises() noexcept {
    sans_defaillance([] {
        for (const auto& [identite, f] : reprise.feuilles)
            if (!f.enregistree) port.reprise.efface(f.chemin);
    });
    reprise.feuilles.clear();
    port.reprise.attend();
}

// Every file is written anew: somebody may have taken one away, or the file that a sheet was saved to, and
// this is the last chance. Where that file has the text, the next start doesn't ask.
bool garde_reprises() noexcept {
    reprise.a_refaire = true;
    for (auto& [identite, f] : reprise.feuilles) f.enregistree = false;
    releve_reprises();
    port.reprise.attend();
    return port.reprise.echec() == 0;
}
