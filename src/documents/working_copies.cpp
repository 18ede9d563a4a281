// The working copies: their names, their writing and their reading.
#include "documents/working_copies.hpp"

#include <algorithm>
#include <optional>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/failures.hpp"
#include "documents/open_documents.hpp"
#include "documents/opened_file.hpp"
#include "documents/paths.hpp"
#include "platform/platform.hpp"

namespace {

constexpr Procedure kLitNomCopie{"sur litnomcopie"_fr, true};
constexpr std::string_view kFinDeLigne = "\r\n";

// A position of the settings table, for the text control; it holds one past the end at the end.
std::size_t position(std::int32_t champ) {
    return static_cast<std::size_t>(std::max<std::int32_t>(champ, 0));
}

// The text as lines: each with CR LF behind it, whatever its line ends are.
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

// Puts the text of the copy in `txt`, without the line end that every copy closes with. A copy just
// made of a file may not be in the code page: `amenee` takes what the copy must become then.
void montre_copie(const std::string& chemin, bool neuve, std::optional<std::string>& amenee) {
    std::string contenu;
    reussit(port.fichiers.lit(chemin, contenu));
    const bool etrangere = neuve && est_unicode(contenu);
    if (etrangere) contenu = amene_fichier(contenu);
    std::string texte = en_lignes(contenu);
    if (etrangere) amenee = texte;
    if (!texte.empty()) texte.resize(texte.size() - kFinDeLigne.size());
    port.texte.pose_texte(std::move(texte));
}

}  // namespace

void rangenomcopie(const std::string& nomfic) {
    std::string nom = nomfic;
    std::replace(nom.begin(), nom.end(), ':', '_');
    nom = std::string(sans_blancs(nom));
    std::replace_if(nom.begin(), nom.end(), est_separateur, '_');
    // The number is that of the last document, on purpose: it isn't always the current one.
    documents.nom_copie(documents.nombre_document) = reglages.dossier_travail + nom;
}

void EcritNomCopie() {
    // What `txt` shows then isn't this document's sheet: its copy must not be lost under it.
    if (documents.liste_fonction_active || documents.feuille_ailleurs) return;
    article& ligne = ligne_courante_ini();
    ligne.champ1 = vers_32_tronque(static_cast<double>(port.texte.sel_start()));
    ligne.champ2 = vers_32_tronque(static_cast<double>(port.texte.sel_length()));
    std::string texte = port.texte.texte();
    texte += kFinDeLigne;
    reussit(port.fichiers.remplace(documents.nom_copie(documents.document_courant), texte));
}

void LitNomCopie(bool neuve) noexcept {
    Tente(kLitNomCopie, [] { port.texte.pose_texte({}); });
    std::string copie;
    Tente(kLitNomCopie, [&] { copie = documents.nom_copie(documents.document_courant); });
    bool existe = false;
    Tente(kLitNomCopie, [&] { existe = FichierExistant(copie); });
    if (!existe) return;
    std::optional<std::string> amenee;
    Tente(kLitNomCopie, [&] { montre_copie(copie, neuve, amenee); });
    Tente(kLitNomCopie, [] {
        const article& ligne = ligne_courante_ini();
        port.texte.pose_selection(position(ligne.champ1), position(ligne.champ2));
    });
    if (amenee) Tente(kLitNomCopie, [&] { reussit(port.fichiers.remplace(copie, *amenee)); });
}

std::string lit_lignes(const std::string& chemin) {
    std::string contenu;
    reussit(port.fichiers.lit(chemin, contenu));
    return en_lignes(contenu);
}
