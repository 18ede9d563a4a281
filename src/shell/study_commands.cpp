// Studies the cursor's function and makes it heard. Changes the view, `ecoute`, `intervalle_donne` and what is said;
// the sheet and its results stay.
#include "shell/study_commands.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/listening.hpp"
#include "shell/views.hpp"
#include "shell/window.hpp"
#include "study/curve.hpp"
#include "study/sheet_study.hpp"

IntervalleDonne intervalle_donne;

namespace {

// The function of the cursor's line, or nothing, and said.
std::optional<FonctionDeFeuille> fonction_montree(const std::string& texte) {
    const std::int32_t ligne = numero_de_ligne(texte, curseur());
    auto fonction = fonction_au_curseur(texte, ligne);
    if (fonction) return fonction;
    const std::string mots = mots_sans_fonction(texte, ligne);
    dit(mots.empty() ? kSansFonctionIci : std::string_view(mots));
    return fonction;
}

// The interval of a function without a heading, from the user; false on Cancel.
bool demande_intervalle(const FonctionDeFeuille& fonction) {
    if (!fonction.entete.empty()) return true;
    return port.boites.saisie(kInviteIntervalle, intervalle_donne.bornes, intervalle_donne.bornes);
}

std::string reunit(const std::vector<std::string>& lignes) {
    std::string texte;
    for (const std::string& ligne : lignes) texte += (texte.empty() ? "" : "\r\n") + ligne;
    return texte;
}

// The curve of the sheet's next function under INC or AIR, or of the first one; left empty when there is none.
CourbeDeFeuille autre_courbe(const std::string& texte, const FonctionDeFeuille& fonction) {
    std::optional<FonctionDeFeuille> choisie;
    for (const FonctionDeFeuille& f : fonctions_de_feuille(texte)) {
        if (f.ligne == fonction.ligne) continue;
        if (!choisie || (choisie->ligne < fonction.ligne && f.ligne > fonction.ligne)) choisie = f;
    }
    CourbeDeFeuille c;
    if (choisie && !lis_courbe(texte, *choisie, "", c).empty()) c = CourbeDeFeuille{};
    return c;
}

}  // namespace

void mnuEtudierItem() {
    const std::string texte = port.texte.texte();
    const auto fonction = fonction_montree(texte);
    if (!fonction || !demande_intervalle(*fonction)) return;
    EtudeDeFeuille etude;
    if (const Refus refus = etudie_fonction(texte, *fonction, intervalle_donne.bornes, etude); !refus.empty())
        return dit(refus);
    montre_lecture(reunit(lignes_d_etude(etude)));
    garde_etude(*fonction, intervalle_donne.bornes);
}

void mnuEcouterItem() {
    const std::string texte = port.texte.texte();
    const auto fonction = fonction_montree(texte);
    if (!fonction || !demande_intervalle(*fonction)) return;
    CourbeDeFeuille une;
    if (const Refus refus = lis_courbe(texte, *fonction, intervalle_donne.bornes, une); !refus.empty())
        return dit(refus);
    ecoute.autre = autre_courbe(texte, *fonction);
    ecoute.une = std::move(une);
    montre_lecture(texte_d_ecoute());
    fenetre.courbe_ecoutee = true;
    joue_la_courbe(true);
}
