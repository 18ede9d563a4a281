// The working copies: their names, their writing and their reading.
#include "documents/working_copies.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "documents/opened_file.hpp"
#include "documents/recovery_file.hpp"
#include "platform/file_failures.hpp"
#include "platform/hooks.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"

namespace {


// What systems take for sure, with what a save adds to a name: a file's name, and a whole path.
constexpr std::size_t kNomMaxi = 200;
constexpr std::size_t kCheminMaxi = 230;
constexpr std::size_t kFinGardee = 40;  // what a short name keeps of the path's end

// The text as lines: each with CR LF after it, whatever its line ends are.
std::string en_lignes(std::string_view reste) {
    std::string lignes;
    lignes.reserve(reste.size() + kFinDeLigne.size());
    while (!reste.empty()) {
        const std::size_t fin = std::min(reste.find_first_of(kFinDeLigne), reste.size());
        lignes.append(reste.substr(0, fin)).append(kFinDeLigne);
        reste.remove_prefix(fin);
        if (!reste.empty()) reste.remove_prefix(reste.starts_with(kFinDeLigne) ? 2 : 1);
    }
    return lignes;
}

// The text of a file without the line end that every copy closes with.
std::string sans_derniere_fin(std::string_view contenu) {
    std::string texte = en_lignes(contenu);
    if (!texte.empty()) texte.resize(texte.size() - kFinDeLigne.size());
    return texte;
}

std::string lit_fichier_entier(const std::string& chemin) {
    std::string contenu;
    reussit(port.fichiers.lit(chemin, contenu));
    return contenu;
}

// A number of the whole path, in sixteen signs.
std::string marque_du_chemin(std::string_view chemin) {
    std::uint64_t n = somme_octets(chemin);
    std::string signes;
    for (int i = 0; i < 16; ++i, n >>= 4) signes += "0123456789abcdef"[n & 0xF];
    return signes;
}

// The name of the copy of that path: short where the system couldn't take a name that long.
std::string nom_de_copie(const std::string& nomfic) {
    std::string nom = nomfic;
    std::replace(nom.begin(), nom.end(), ':', '_');
    nom = std::string(sans_blancs(nom));
    std::replace_if(nom.begin(), nom.end(), [](char c) { return c == '\\' || c == '/'; }, '_');
    const std::size_t longueur = vers_utf8(nom).size();
    if (longueur <= kNomMaxi && reglages.dossier_travail.size() + longueur <= kCheminMaxi)
        return nom;
    return marque_du_chemin(nomfic) + "_" + nom.substr(nom.size() - std::min(nom.size(), kFinGardee));
}

// True when another open sheet has that copy. Case doesn't count: it doesn't on every disk.
bool copie_prise(const std::string& copie, int rang) {
    for (int i = 1; i <= documents.nombre_document; ++i)
        if (i != rang && capitales(documents.nom_copie(i)) == capitales(copie)) return true;
    return false;
}

// True when the working folder had gone and has been made again.
bool refait_dossier() {
    const std::string dossier = Sansbackslash(reglages.dossier_travail);
    return !port.fichiers.existe_dossier(dossier) && port.fichiers.cree_dossier(dossier) == 0;
}

// Writes the copy again from memory, under another name where something is in its way.
void repare_copie(int rang) {
    if (EssaieEnSilence([&] { ecrit_copie(rang); })) return;
    const std::string ancienne = documents.nom_copie(rang);
    documents.nom_copie(rang) = copie_libre(ancienne + "_2", rang);
    if (!EssaieEnSilence([&] { ecrit_copie(rang); })) documents.nom_copie(rang) = ancienne;
}

}  // namespace

std::string copie_pour(const std::string& nomfic, int rang) {
    return copie_libre(reglages.dossier_travail + nom_de_copie(nomfic), rang);
}

void rangenomcopie(const std::string& nomfic, int rang) {
    documents.nom_copie(rang) = copie_pour(nomfic, rang);
}

std::string copie_libre(const std::string& copie, int rang) {
    std::string libre = copie;
    for (int n = 2; copie_prise(libre, rang); ++n) libre = copie + "_" + chiffres(n);
    return libre;
}

bool feuille_montree() {
    return !documents.liste_fonction_active && !documents.feuille_ailleurs && crochets.feuille_montree();
}

void note_feuille() {
    // What `txt` shows then isn't this document's sheet, whose text must not be lost under it.
    if (!feuille_montree()) return;
    const int rang = documents.document_courant;
    std::string texte = port.texte.texte();
    article& ligne = ligne_courante_ini();
    ligne.champ1 = vers_32_tronque(static_cast<double>(port.texte.sel_start()));
    ligne.champ2 = vers_32_tronque(static_cast<double>(port.texte.sel_length()));
    documents.copie_a_jour(rang) = 0;
    documents.texte(rang) = std::move(texte);
}

void ecrit_copie(int rang) {
    std::string texte = documents.texte(rang);
    texte += kFinDeLigne;
    const std::string& copie = documents.nom_copie(rang);
    documents.copie_a_jour(rang) = 0;
    int numero = port.fichiers.remplace(copie, texte);
    if (numero == kDossierAbsent && refait_dossier()) numero = port.fichiers.remplace(copie, texte);
    reussit(numero);
    documents.copie_a_jour(rang) = 1;
}

void EcritNomCopie() {
    if (!feuille_montree()) return;
    note_feuille();
    ecrit_copie(documents.document_courant);
}

int copie_vers_copie(const std::string& nomfic, const std::string& copie) {
    const int numero = port.fichiers.copie(nomfic, copie);
    if (numero != kDossierAbsent || !refait_dossier()) return numero;
    return port.fichiers.copie(nomfic, copie);
}

FeuilleLue lit_copie_neuve(const std::string& copie) {
    std::string contenu = lit_fichier_entier(copie);
    const std::uint64_t base = somme_octets(contenu);
    const bool secours = est_reprise(contenu);
    const bool etrangere = secours || est_unicode(contenu);
    if (etrangere) contenu = secours ? amene_reprise(contenu) : amene_fichier(contenu);
    return {sans_derniere_fin(contenu), etrangere, base};
}

bool lit_copie(int rang, std::string& texte) noexcept {
    return Tente(kLitNomCopie, [&] {
        std::string garde = documents.texte(rang);
        int echec = 0;
        bool fidele = false;
        if (documents.copie_a_jour(rang) != 0)
            Essaie([&] { fidele = lit_fichier_entier(documents.nom_copie(rang)) == garde + "\r\n"; },
                   [&](int numero) { echec = numero; });
        // A copy that somebody else has changed is not the user's text.
        if (!fidele) repare_copie(rang);
        reussit(echec);
        texte = std::move(garde);
    });
}

void montre_feuille(std::string texte) {
    std::string gardee = texte;
    documents.texte(documents.document_courant) = std::move(gardee);
    port.texte.pose_texte(std::move(texte));
    const article& ligne = ligne_courante_ini();
    port.texte.pose_selection(position_gardee(ligne.champ1), position_gardee(ligne.champ2));
}

bool LitNomCopie() noexcept {
    std::string texte;
    if (!lit_copie(documents.document_courant, texte)) return false;
    return Tente(kLitNomCopie, [&] { montre_feuille(std::move(texte)); });
}

void remontre_feuille() noexcept {
    if (LitNomCopie()) return;
    Tente(kLitNomCopie, [] { montre_feuille(documents.texte(documents.document_courant)); });
}

std::string lit_lignes(const std::string& chemin) { return en_lignes(lit_fichier_entier(chemin)); }
