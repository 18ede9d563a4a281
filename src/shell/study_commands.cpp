// Studies the cursor's function. Changes the view, `intervalle_donne` and what is said; the sheet and its results stay.
#include "shell/study_commands.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/views.hpp"
#include "study/sheet_study.hpp"

IntervalleDonne intervalle_donne;

namespace {

// The function of the cursor's line, or nothing, and said.
std::optional<FonctionDeFeuille> fonction_montree(const std::string& texte) {
    auto fonction = fonction_au_curseur(texte, NumeroTxt(texte, curseur()));
    if (!fonction) dit(kSansFonctionIci);
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

}  // namespace

void mnuEtudierItem() {
    const std::string texte = port.texte.texte();
    const auto fonction = fonction_montree(texte);
    if (!fonction || !demande_intervalle(*fonction)) return;
    EtudeDeFeuille etude;
    if (const Refus refus = etudie_fonction(texte, *fonction, intervalle_donne.bornes, etude); !refus.empty())
        return dit(refus);
    montre_lecture(reunit(lignes_d_etude(etude)));
    etude_gardee = std::move(etude);
}
