// Studies and curves of the functions under INC and AIR, in the order of the sheet. Changes files, and nothing of the
// sheet.
#include "terminal/study_files.hpp"

#include <cstddef>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "platform/files.hpp"
#include "study/sheet_study.hpp"
#include "study/sound.hpp"

namespace {

constexpr const char* kSansFonction = "la feuille n'a ni INC ni AIR";
constexpr std::size_t kCourbesMaxi = 100;   // six minutes of sound

// Why a function of that line can't be studied, for the terminal.
std::string mots_refus(const FonctionDeFeuille& f, Refus refus) {
    return "ligne " + std::to_string(f.ligne) + " : " + vers_utf8(refus);
}

// The lines of all studies, an empty line between two.
std::string textes_d_etude(const std::string& texte, std::string& mots) {
    std::string sortie;
    for (const FonctionDeFeuille& f : fonctions_de_feuille(texte)) {
        EtudeDeFeuille etude;
        if (const Refus refus = etudie_fonction(texte, f, "", etude); !refus.empty()) {
            mots = mots_refus(f, refus);
            return {};
        }
        if (!sortie.empty()) sortie += '\n';
        for (const std::string& ligne : lignes_d_etude(etude)) sortie += vers_utf8(ligne) + '\n';
    }
    if (sortie.empty()) mots = kSansFonction;
    return sortie;
}

// All curves one after the other, each with its own scale.
std::string sons_de(const std::string& texte, std::string& mots) {
    const std::vector<FonctionDeFeuille> fonctions = fonctions_de_feuille(texte);
    if (fonctions.size() > kCourbesMaxi) {
        mots = "la feuille a " + std::to_string(fonctions.size()) + " fonctions, un fichier de son en prend " +
               std::to_string(kCourbesMaxi);
        return {};
    }
    Echantillons tous;
    for (const FonctionDeFeuille& f : fonctions) {
        CourbeDeFeuille c;
        if (const Refus refus = lis_courbe(texte, f, "", c); !refus.empty()) {
            mots = mots_refus(f, refus);
            return {};
        }
        enchaine(tous, joue_courbe(c.courbe, {}));
    }
    if (!tous.empty()) return fichier_wav(tous);
    mots = kSansFonction;
    return {};
}

}  // namespace

RefusEchange ecrit_etudes(const OptionsCalcul& options, const std::string& texte) {
    for (const auto& [chemin, fait] : {std::pair{&options.etude, &textes_d_etude}, std::pair{&options.son, &sons_de}}) {
        if (chemin->empty()) continue;
        RefusEchange refus{*chemin, 0, ""};
        const std::string contenu = fait(texte, refus.mots);
        if (refus.mots.empty()) refus.numero = remplace_fichier(*chemin, contenu);
        if (refus.refuse()) return refus;
    }
    return {};
}
