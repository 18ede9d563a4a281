// The user, the files around him, and what must not get lost.
#include "lost/player.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "documents/paths.hpp"
#include "documents/settings.hpp"
#include "documents/working_copies.hpp"
#include "platform/memory.hpp"
#include "platform/platform.hpp"
#include "shell/help_mode.hpp"
#include "tools/script.hpp"

namespace {

using Mots = std::set<std::string>;

// Adds the words "k12k" of a text.
void ajoute_mots(Mots& mots, std::string_view texte) {
    for (std::size_t k = texte.find('k'); k != texte.npos; k = texte.find('k', k)) {
        std::size_t fin = k + 1;
        while (fin < texte.size() && std::isdigit(static_cast<unsigned char>(texte[fin]))) ++fin;
        const bool entier = fin > k + 1 && fin < texte.size() && texte[fin] == 'k';
        if (entier) mots.emplace(texte.substr(k, fin - k + 1));
        k = entier ? fin + 1 : fin;
    }
}

// The words of a text but those that the user has brought behind a result: they are part of it then.
void ajoute_mots_hors_resultats(Mots& mots, std::string_view texte) {
    while (!texte.empty()) {
        const std::size_t fin = std::min(texte.find('\n'), texte.size() - 1) + 1;
        const std::string_view ligne = texte.substr(0, fin);
        ajoute_mots(mots, ligne.substr(0, ligne.find('=')));
        texte.remove_prefix(fin);
    }
}

Mots mots_du_texte() {
    Mots mots;
    if (programme_en_marche() && feuille_montree()) ajoute_mots_hors_resultats(mots, memoire.texte);
    return mots;
}

// True for a file that keeps a text of the user's: no working copy, and a backup only where a sheet
// has borne its name.
bool garde(const Joueur& j, const std::string& chemin) {
    const std::string grand = capitales(chemin);
    if (grand.starts_with("C:\\VOXTAB\\TRAVAIL\\") || grand == "C:\\VOXTAB\\VOXTAB.INI") return false;
    return !grand.ends_with(".BAK") || j.ouverts.contains(grand);
}

void ajoute_fichiers(const Joueur& j, Mots& mots) {
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier && garde(j, chemin)) ajoute_mots(mots, fichier.contenu);
}

// All that can be found now, the sheets as the program holds them.
Mots mots_trouves(const Joueur& j) {
    Mots mots = mots_du_texte();
    if (programme_en_marche())
        for (int i = 1; i <= documents.nombre_document; ++i)
            if (i != documents.document_courant || !feuille_montree())
                ajoute_mots(mots, documents.texte(i));
    ajoute_fichiers(j, mots);
    return mots;
}

// The save dialog of a user who never gives a file up: a file that exists and isn't the sheet's own
// is not replaced.
Joueur* joueur = nullptr;   // who plays
bool (*vrai_dialogue)(std::string&, std::string_view, std::string_view);

bool dialogue_prudent(std::string& nom, std::string_view filtre, std::string_view extension) {
    if (!vrai_dialogue(nom, filtre, extension)) return false;
    if (capitales(nom).ends_with(".BAK")) joueur->ouverts.insert(capitales(nom));
    return !lit_memoire(nom) ||
           port.fichiers.meme_fichier(nom, reglages.table_ini(documents.document_courant).nom);
}

// Steps in which the user himself changes the text.
bool est_edition(std::string_view etape) {
    constexpr std::array kDebuts = {
        std::string_view("tape"),          std::string_view("touche Suppr"),
        std::string_view("touche Arri"),   std::string_view("touche Ctrl+Z"),
        std::string_view("touche Ctrl+Maj+Z"), std::string_view("touche Entr"),
        std::string_view("choisit mnumodif"), std::string_view("choisit mnuAnnuler"),
        std::string_view("choisit mnuRetabli"), std::string_view("choisit mnuEffaceMot"),
        std::string_view("clique CmdModif")};
    return std::any_of(kDebuts.begin(), kDebuts.end(),
                       [&](std::string_view d) { return etape.starts_with(d); });
}

// Somebody else's work at the files: what stood there alone isn't the program's to keep.
bool est_voisin(std::string_view etape) {
    return etape.starts_with("supprime") || etape.starts_with("dossier") ||
           etape.starts_with("fichier");
}

// The program is stopped: a sheet that was held for saved is only in its file, which somebody else may
// have taken away.
void note_arret(Joueur& j) {
    Mots fichiers;
    ajoute_fichiers(j, fichiers);
    for (int i = 1; i <= documents.nombre_document && !j.touches.empty(); ++i) {
        const bool montree = i == documents.document_courant && feuille_montree();
        const std::string& texte = montree ? memoire.texte : documents.texte(i);
        if (documents.document_modifie(i) != 0 ||
            lit_memoire(reglages.table_ini(i).nom) == texte + "\r\n")
            continue;
        Mots siens;
        ajoute_mots(siens, texte);
        for (const std::string& mot : siens)
            if (!fichiers.contains(mot)) j.mots.erase(mot);
    }
}

// Somebody is about to take away the file of a sheet that was just saved to it while its mark stayed, on
// the way out, or to put another one there: the program holds the sheet for saved and can't know.
void note_vol(Joueur& j, std::string_view etape) {
    const std::size_t debut = etape.find('"') + 1;
    const std::string chemin(etape.substr(debut, etape.find('"', debut) - debut));
    for (int i = 1; i <= documents.nombre_document; ++i) {
        const std::string& nom = reglages.table_ini(i).nom;
        const bool dedans = capitales(nom).starts_with(capitales(chemin) + "\\");
        if (!dedans && !meme_document(nom, chemin)) continue;
        const std::optional<std::string> contenu = lit_memoire(nom);
        const std::string& texte = documents.texte(i);
        const bool enregistree = contenu == texte + "\r\n" && documents.document_modifie(i) != 0;
        const bool remplacee = etape.starts_with("fichier") && !contenu;
        if (!enregistree && !remplacee) continue;
        Mots siens;
        ajoute_mots(siens, texte);
        for (const std::string& mot : siens) j.mots.erase(mot);
    }
}

void note_ouverts(Joueur& j) {
    for (int i = 1; i <= documents.nombre_document; ++i) {
        const std::string nom = capitales(reglages.table_ini(i).nom);
        if (nom.ends_with(".BAK")) j.ouverts.insert(nom);
    }
}

void note_voisin(Joueur& j, std::string_view etape) {
    const std::size_t debut = etape.find('"') + 1;
    j.touches.insert(capitales(etape.substr(debut, etape.find('"', debut) - debut)));
    const Mots restent = mots_trouves(j);
    std::erase_if(j.mots, [&](const std::string& mot) { return !restent.contains(mot); });
}

}  // namespace

void nouvelle_partie(Joueur& j) {
    j = {};
    joueur = &j;
    nouveau_script(false);
    vrai_dialogue = port.dialogues.enregistre;
    port.dialogues.enregistre = dialogue_prudent;
}

void joue(Joueur& j, const std::string& etape) {
    const Mots avant = mots_du_texte();
    const std::uint64_t feuille_avant = documents.identite(documents.document_courant);
    // Nobody puts a file over one that is there, or a folder.
    if (etape.starts_with("fichier") || etape.starts_with("dossier")) {
        const std::size_t debut = etape.find('"') + 1;
        const std::string chemin = etape.substr(debut, etape.find('"', debut) - debut);
        if (script.commence && (lit_memoire(chemin) || dossier_memoire(chemin))) return;
    }
    // Not looked at yet: a start at which a recovery file can't be set aside, so that it is offered again
    // when its sheet has been saved anew meanwhile.
    if (etape.starts_with("redémarre")) memoire.echec_operation = 0;
    if (etape.starts_with("redémarre") && programme_en_marche()) note_arret(j);
    if (est_voisin(etape)) note_vol(j, etape);
    j.jouees.push_back(etape);
    execute_etape(1, etape);
    script.echecs.clear();
    if (!etape.starts_with("répond") && !etape.starts_with("annule") && !etape.starts_with("échec"))
        memoire.reponses.clear();
    note_ouverts(j);
    if (est_voisin(etape)) note_voisin(j, etape);
    if (!est_edition(etape) || !programme_en_marche() ||
        documents.identite(documents.document_courant) != feuille_avant)
        return;
    const Mots apres = mots_du_texte();
    for (const std::string& mot : avant)
        if (!apres.contains(mot)) j.mots.erase(mot);
    j.mots.insert(apres.begin(), apres.end());
}

namespace {

// A sheet without its mark is what its file holds.
std::string verifie_enregistree(const Joueur& j, int rang) {
    if (documents.document_modifie(rang) != 0 || documents.a_son_fichier(rang) == 0) return "";
    const std::string& nom = reglages.table_ini(rang).nom;
    if (!j.touches.empty()) return "";
    const std::optional<std::string> contenu = lit_memoire(nom);
    if (contenu && *contenu == memoire.texte + "\r\n") return "";
    return "unmarked, and its file is not what is shown: " + nom;
}

// Goes once around all open sheets, as the user would.
std::string fait_le_tour(Joueur& j, Mots& trouves) {
    if (aide.aide_touche) execute_etape(1, "touche F1");
    // A copy that is missing is told the first time, and made again.
    for (int n = 2 * documents.nombre_document; n > 0; --n) {
        execute_etape(1, "choisit mnuFichierSuivantItem");
        ajoute_mots(trouves, memoire.texte);
        if (std::string faute = verifie_enregistree(j, documents.document_courant); !faute.empty())
            return faute;
    }
    return "";
}

// Every open sheet has its own path and its own working copy.
std::string verifie_lignes() {
    Mots chemins, copies;
    for (int i = 1; i <= documents.nombre_document; ++i) {
        if (!copies.insert(capitales(documents.nom_copie(i))).second)
            return "two sheets with one working copy";
        const std::string& nom = reglages.table_ini(i).nom;
        if (nom != reglages.article_vide.nom && !chemins.insert(capitales(nom)).second)
            return "one path in two rows";
    }
    return "";
}

}  // namespace

std::string verifie(Joueur& j) {
    memoire.echec_operation = 0;
    memoire.reponses.clear();
    Mots trouves;
    if (programme_en_marche()) {
        if (std::string faute = verifie_lignes(); !faute.empty()) return faute;
        // What stood in the way of the working copies is gone.
        supprime_memoire("C:\\VOXTAB\\travail");
        if (std::string faute = fait_le_tour(j, trouves); !faute.empty()) return faute;
    }
    ajoute_fichiers(j, trouves);
    for (const std::string& mot : j.mots)
        if (!trouves.contains(mot)) return "lost: " + mot;
    return "";
}
