// Where the user's words stand.
#include "lost/words.hpp"

#include <algorithm>
#include <cctype>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "documents/recovery_file.hpp"
#include "documents/working_copies.hpp"
#include "settings/settings.hpp"
#include "support/script.hpp"

namespace {

constexpr std::string_view kResultat = " = ";

void ajoute_mots_de_la_ligne(Mots& mots, std::string_view ligne) {
    for (std::size_t k = ligne.find('k'); k != ligne.npos; k = ligne.find('k', k)) {
        std::size_t fin = k + 1;
        while (fin < ligne.size() && std::isdigit(static_cast<unsigned char>(ligne[fin]))) ++fin;
        const bool entier = fin > k + 1 && fin < ligne.size() && ligne[fin] == 'k';
        if (entier) mots.emplace(ligne.substr(k, fin - k + 1));
        k = entier ? fin + 1 : fin;
    }
}

bool garde(std::string_view chemin) {
    const std::string grand = capitales(chemin);
    return !grand.starts_with("C:\\VOXTAB\\TRAVAIL\\") && grand != "C:\\VOXTAB\\VOXTAB.INI" &&
           !grand.ends_with(".BAK");
}

// The words of the open sheets that are meant, as the program holds them.
template <class Choix>
Mots mots_des_feuilles(Choix&& choix) {
    Mots mots;
    for (int i = 1; programme_en_marche() && i <= documents.nombre_document; ++i) {
        if (!choix(i)) continue;
        const bool montree = i == documents.document_courant && feuille_montree();
        ajoute_mots(mots, montree ? memoire.texte : documents.texte(i));
    }
    return mots;
}

// The text that a user finds in a file.
std::string texte_du_fichier(const std::string& octets) {
    if (!est_reprise(octets)) return octets;
    FicheReprise fiche;
    std::string texte;
    lit_reprise(octets, fiche, texte);
    return texte;
}

}  // namespace

void ajoute_mots(Mots& mots, std::string_view texte) {
    if (texte.find('k') == texte.npos) return;
    while (!texte.empty()) {
        const std::size_t fin = std::min(texte.find('\n'), texte.size() - 1) + 1;
        const std::string_view ligne = texte.substr(0, fin);
        ajoute_mots_de_la_ligne(mots, ligne.substr(0, ligne.find(kResultat)));
        texte.remove_prefix(fin);
    }
}

Mots mots_montres() {
    Mots mots;
    if (programme_en_marche() && feuille_montree()) ajoute_mots(mots, memoire.texte);
    return mots;
}

Mots mots_changes() {
    return mots_des_feuilles([](int i) { return documents.document_modifie(i) != 0; });
}

Mots mots_ouverts(std::string_view chemin) {
    return mots_des_feuilles([&](int i) {
        return capitales(chemin_memoire(reglages.table_ini(i).nom)) == capitales(chemin);
    });
}

Fichiers mots_des_fichiers() {
    Fichiers fichiers;
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier && garde(chemin) && !memoire.reprises_a_effacer.contains(chemin))
            ajoute_mots(fichiers[chemin], texte_du_fichier(fichier.contenu));
    return fichiers;
}

Mots mots_sur_disque() {
    Mots mots;
    for (const auto& [chemin, siens] : mots_des_fichiers()) mots.insert(siens.begin(), siens.end());
    return mots;
}
