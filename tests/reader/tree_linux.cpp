// The disk C: of the tests on Linux: a folder, whose names are found in whatever capitals. State:
// that folder, and the real files that stand behind the port's slots.
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "platform/files.hpp"
#include "platform/platform.hpp"
#include "reader/tree.hpp"

namespace {

namespace fs = std::filesystem;

fs::path disque;       // the folder that stands for "C:\"
PortFichiers reels{};  // the slots that really touch files

// The name in a folder that is equal but for capitals; the name itself when there is none.
fs::path nom_reel(const fs::path& dossier, const std::string& nom) {
    std::error_code erreur;
    for (const fs::directory_entry& entree : fs::directory_iterator(dossier, erreur)) {
        const auto lu = depuis_utf8(entree.path().filename().string());
        if (lu && capitales(*lu) == capitales(nom)) return entree.path().filename();
    }
    return vers_utf8(nom);
}

// The real path of "C:\a\b", in the code page as the port has it; an empty path stays empty.
std::string reel(std::string_view chemin) {
    if (chemin.empty()) return "";
    fs::path sortie = disque;
    if (chemin.size() >= 2 && chemin[1] == ':') chemin.remove_prefix(2);
    while (!chemin.empty()) {
        const std::size_t fin = chemin.find('\\');
        if (fin != 0) sortie /= nom_reel(sortie, std::string(chemin.substr(0, fin)));
        chemin = fin == std::string_view::npos ? "" : chemin.substr(fin + 1);
    }
    return depuis_utf8(sortie.string()).value();
}

}  // namespace

void installe_disque(const fs::path& racine) {
    disque = racine;
    installe_fichiers_reels();
    reels = port.fichiers;
    using Chemin = const std::string&;
    using Noms = std::vector<std::string>&;
    port.fichiers = {
        [](Chemin c) { return reels.existe(reel(c)); },
        [](Chemin c) { return reels.existe_dossier(reel(c)); },
        [](Chemin c, std::string& contenu) { return reels.lit(reel(c), contenu); },
        [](Chemin c, const std::string& contenu) { return reels.remplace(reel(c), contenu); },
        [](Chemin de, Chemin vers) { return reels.copie(reel(de), reel(vers)); },
        [](Chemin de, Chemin vers) { return reels.deplace(reel(de), reel(vers)); },
        [](Chemin c) { return reels.efface(reel(c)); },
        [](Chemin c) { return reels.cree_dossier(reel(c)); },
        [](Chemin c, Noms noms) { return reels.liste_fichiers(reel(c), noms); },
        [](Chemin c, Noms noms) { return reels.liste_dossiers(reel(c), noms); },
        [](Chemin a, Chemin b) { return reels.meme_fichier(reel(a), reel(b)); }};
}
