// Names of files and folders: their parts, their final separator, the cut after the first dot.
#include "platform/paths.hpp"

#include <algorithm>

#include "base/codepage.hpp"
#include "platform/platform.hpp"

namespace {

constexpr std::size_t kExtension = 3;  // characters kept after the first dot

// Characters that end the folder part: scans stop at the last of them.
std::string_view fins_dossier() { return port.systeme.separateur == '/' ? "\\/:" : "\\:"; }

}  // namespace

bool est_separateur(char c) { return c == '\\' || c == port.systeme.separateur; }

std::string cheminSeul(std::string_view chemin) {
    const std::size_t fin = chemin.find_last_of(fins_dossier());
    // A bare name gives the separator alone. Kept: see the oddities, bare-name-folder.
    return ajoutbackslash(fin == std::string_view::npos ? std::string_view()
                                                        : chemin.substr(0, fin + 1));
}

std::string NomFichSeul(std::string_view chemin) {
    const std::size_t fin = chemin.find_last_of(fins_dossier());
    return std::string(fin == std::string_view::npos ? chemin : chemin.substr(fin + 1));
}

std::string ajoutbackslash(std::string_view chemin) {
    std::string complet(chemin);
    if (complet.empty() || !est_separateur(complet.back())) complet += port.systeme.separateur;
    return complet;
}

std::string Sansbackslash(std::string_view chemin) {
    if (chemin.size() < 2) return "";
    if (est_separateur(chemin.back())) chemin.remove_suffix(1);
    return std::string(chemin);
}

bool FichierExistant(const std::string& chemin) { return port.fichiers.existe(chemin); }

bool meme_chemin(std::string_view a, std::string_view b) {
    if (port.systeme.separateur == '/') return a == b;
    const auto replie = [](char c) { return est_separateur(c) || c == '/' ? '\\' : capitale(c); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return replie(x) == replie(y); });
}

bool meme_document(const std::string& a, const std::string& b) {
    if (meme_chemin(a, b) || port.fichiers.meme_fichier(a, b)) return true;
    const auto dossier = [](const std::string& chemin) {
        return NomFichSeul(chemin) == chemin ? port.systeme.dossier_courant() : cheminSeul(chemin);
    };
    return meme_chemin(NomFichSeul(a), NomFichSeul(b)) &&
           port.fichiers.meme_fichier(dossier(a), dossier(b));
}

std::size_t premier_point(std::string_view nom) {
    const std::size_t dossier = nom.find_last_of("\\/:");
    return nom.find('.', dossier == std::string_view::npos ? 0 : dossier + 1);
}

std::string coupe_premier_point(std::string_view nom) {
    const std::size_t point = premier_point(nom);
    if (point == std::string_view::npos) return std::string(nom);
    return std::string(nom.substr(0, point + 1 + kExtension));
}
