// Reading and writing the options of the menu Outils. Changes `outils` and its file.
#include "settings/tool_options.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/codepage.hpp"
#include "platform/file_failures.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"

OptionsOutils outils;

namespace {

// The options that are on or off, by their names in the file, in the order in which they stand there.
struct OptionNommee {
    std::string_view nom;
    bool OptionsOutils::*valeur;
};
constexpr std::array kOptions = {
    OptionNommee{"son", &OptionsOutils::son},
    OptionNommee{"attention", &OptionsOutils::attention},
};

constexpr std::size_t kLigneMaxi = 200;        // bytes of a line that isn't ours, to be kept
constexpr std::size_t kInconnuesMaxi = 4096;   // bytes of all these lines

std::string chemin_outils() { return reglages.dossier_programme + kFichierOutils; }

// A line that this version doesn't know is kept when it has the form of an option: whatever else has
// come into the file goes.
void garde_inconnue(OptionsOutils& options, std::string_view ligne) {
    const std::size_t egal = ligne.find('=');
    bool nom = egal != std::string_view::npos && egal > 0 && ligne.size() <= kLigneMaxi;
    for (const char c : ligne.substr(0, nom ? egal : 0))
        nom = nom && ((c >= 'a' && c <= 'z') || c == '_' || c == ' ');
    if (nom && options.inconnues.size() + ligne.size() <= kInconnuesMaxi)
        (options.inconnues += ligne) += kFinDeLigne;
}

// One line of the file, without its end.
void prend_ligne(OptionsOutils& options, std::string_view ligne) {
    const std::size_t egal = ligne.find('=');
    const std::string_view nom = sans_blancs(ligne.substr(0, egal));
    const auto option = std::ranges::find(kOptions, nom, &OptionNommee::nom);
    if (option == kOptions.end() || egal == std::string_view::npos) return garde_inconnue(options, ligne);
    options.*option->valeur = sans_blancs(ligne.substr(egal + 1)) == "1";
    if (option->valeur == &OptionsOutils::attention) options.attention_choisie = true;
}

}  // namespace

OptionsOutils lis_outils(std::string_view contenu) {
    OptionsOutils options;
    while (!contenu.empty()) {
        const std::size_t fin = contenu.find_first_of(kFinDeLigne);
        prend_ligne(options, contenu.substr(0, fin));
        contenu.remove_prefix(fin == std::string_view::npos ? contenu.size() : fin + 1);
    }
    return options;
}

std::string texte_outils(const OptionsOutils& options) {
    std::string texte;
    for (const OptionNommee& option : kOptions)
        if (option.valeur != &OptionsOutils::attention || options.attention_choisie)
            texte.append(option.nom).append(options.*option.valeur ? "=1" : "=0").append(kFinDeLigne);
    return texte += options.inconnues;
}

void lit_outils() {
    const std::string chemin = chemin_outils();
    if (!FichierExistant(chemin)) return;
    std::string contenu;
    reussit(port.fichiers.lit(chemin, contenu));
    const bool depart = outils.attention;
    outils = lis_outils(contenu);
    if (!outils.attention_choisie) outils.attention = depart;
}

void ecrit_outils() { reussit(port.fichiers.remplace(chemin_outils(), texte_outils(outils))); }
