// The user, the files around him, and what must not get lost.
#include "lost/player.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "documents/working_copies.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/help_mode.hpp"
#include "support/memory.hpp"
#include "support/script.hpp"

namespace {

template <class Choix>
bool commence_par(std::string_view etape, const Choix& debuts) {
    return std::any_of(debuts.begin(), debuts.end(),
                       [&](std::string_view d) { return etape.starts_with(d); });
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
    return commence_par(etape, kDebuts);
}

// Somebody else's work at the files.
bool est_voisin(std::string_view etape) {
    constexpr std::array kDebuts = {std::string_view("supprime"), std::string_view("dossier"),
                                    std::string_view("fichier")};
    return commence_par(etape, kDebuts);
}

std::string chemin_de(std::string_view etape) {
    const std::size_t debut = etape.find('"') + 1;
    return std::string(etape.substr(debut, etape.find('"', debut) - debut));
}

void oublie(Joueur& j, const Mots& mots) {
    for (const std::string& mot : mots) j.mots.erase(mot);
}

Mots sans(const Mots& mots, const Mots& autres) {
    Mots reste;
    std::set_difference(mots.begin(), mots.end(), autres.begin(), autres.end(),
                        std::inserter(reste, reste.end()));
    return reste;
}

// The content of every file at its full path, for what a step changes in them.
using Contenus = std::map<std::string, std::string, OrdreChemin>;
Contenus contenus() {
    Contenus tous;
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier) tous[chemin] = fichier.contenu;
    return tous;
}

// ---- The user gives a file up: he chooses its name for another sheet, and answers Yes

Joueur* joueur = nullptr;   // who plays
bool (*vrai_dialogue)(std::string&, const DemandeFichier&);

bool dialogue_note(std::string& nom, const DemandeFichier& demande) {
    if (!vrai_dialogue(nom, demande)) return false;
    if (!port.fichiers.meme_fichier(nom, reglages.table_ini(documents.document_courant).nom))
        if (const std::optional<std::string> contenu = lit_memoire(nom))
            ajoute_mots(joueur->remplaces[nom], *contenu);
    // What goes out as a page or as data is no sheet: opened as one it is shown otherwise.
    if (capitales(demande.extension) != "VXT" && !capitales(nom).ends_with(".VXT")) joueur->touches.insert(chemin_memoire(nom));
    return true;
}

// The file that he chose is another one now: its words are given up where they stand in no other file and
// in no sheet that is still to be saved.
void note_remplaces(Joueur& j) {
    if (j.remplaces.empty()) return;
    Mots gardes = mots_changes();
    gardes.merge(mots_sur_disque());
    for (const auto& [chemin, mots] : j.remplaces) {
        Mots restent;
        ajoute_mots(restent, lit_memoire(chemin).value_or(""));
        if (!sans(mots, restent).empty()) oublie(j, sans(mots, gardes));
    }
    j.remplaces.clear();
}

// ---- A neighbour's work

// A word that stood in the file alone is the neighbour's to answer for. One that the program still has in
// the sheet of that file, or in one that is to be saved, must outlive every command, but a stop can take it;
// and a sheet that the program holds for saved is no more than the file that the neighbour has put there.
void note_voisin(Joueur& j, const Fichiers& avant, const Contenus& anciens) {
    const Mots disque = mots_sur_disque();
    const Mots changees = mots_changes();
    for (const auto& [chemin, contenu] : anciens)
        if (lit_memoire(chemin) != contenu) j.touches.insert(chemin);
    for (const auto& [chemin, mots] : avant) {
        if (lit_memoire(chemin) == anciens.at(chemin)) continue;
        const Mots pris = sans(mots, disque);
        oublie(j, sans(sans(pris, changees), mots_ouverts(chemin)));
        j.voles[chemin].insert(pris.begin(), pris.end());
    }
    for (auto& [chemin, mots] : j.voles)
        if (lit_memoire(chemin)) oublie(j, sans(sans(mots, disque), changees));
}

// What stands in a file again isn't stolen any more.
void rend_voles(Joueur& j) {
    if (j.voles.empty()) return;
    const Mots disque = mots_sur_disque();
    for (auto& [chemin, mots] : j.voles) mots = sans(mots, disque);
    std::erase_if(j.voles, [](const auto& paire) { return paire.second.empty(); });
}

// ---- A stop

bool panne_dite(const Joueur& j) {
    const auto& journal = memoire.journal;
    return std::any_of(journal.begin() + static_cast<std::ptrdiff_t>(j.panne_depuis), journal.end(),
                       [](const Entendu& e) {
                           return e.texte.find("pas de copie de secours") != std::string::npos;
                       });
}

// The machine is about to stop. What a neighbour took from the disk goes with it, and what the disk took
// no recovery file of: the user must know that by then.
void note_arret(Joueur& j) {
    const Mots disque = mots_sur_disque();
    for (const auto& [chemin, mots] : j.voles) oublie(j, sans(mots, disque));
    j.voles.clear();
    if (memoire.reprises_ratees.empty()) return;
    Mots perdus = sans(mots_changes(), disque);
    std::erase_if(perdus, [&](const std::string& mot) { return !j.mots.contains(mot); });
    if (!perdus.empty() && !panne_dite(j)) j.faute = "no recovery file, and nobody was told: " + *perdus.begin();
    oublie(j, perdus);
}

// ---- One step

// Nobody makes a folder or a file where a folder is, or a folder over a file.
bool impossible(std::string_view etape) {
    const bool dossier = etape.starts_with("dossier");
    if (!script.commence || (!dossier && !etape.starts_with("fichier"))) return false;
    const std::string chemin = chemin_de(etape);
    return dossier_memoire(chemin) || (dossier && lit_memoire(chemin));
}

void execute(Joueur& j, const std::string& etape) {
    if (memoire.reprises_ratees.empty()) j.panne_depuis = memoire.journal.size();
    if (etape.starts_with("redémarre") && programme_en_marche()) note_arret(j);
    j.jouees.push_back(etape);
    execute_etape(1, etape);
    script.echecs.clear();
    if (!etape.starts_with("répond") && !etape.starts_with("annule") && !etape.starts_with("échec"))
        memoire.reponses.clear();
}

}  // namespace

void nouvelle_partie(Joueur& j) {
    j = {};
    joueur = &j;
    nouveau_script(false);
    vrai_dialogue = port.dialogues.enregistre;
    port.dialogues.enregistre = dialogue_note;
}

void joue(Joueur& j, const std::string& etape) {
    if (impossible(etape)) return;
    if (est_voisin(etape) && script.commence) {   // the files of the start are nobody's work
        const Fichiers avant = mots_des_fichiers();
        const Contenus anciens = contenus();
        execute(j, etape);
        note_voisin(j, avant, anciens);
        return;
    }
    const bool edite = est_edition(etape) && programme_en_marche() && feuille_montree();
    const Mots avant = edite ? mots_montres() : Mots();
    const std::uint64_t feuille_avant = documents.identite(documents.document_courant);
    execute(j, etape);
    note_remplaces(j);
    rend_voles(j);
    if (!edite || !programme_en_marche() || !feuille_montree() ||
        documents.identite(documents.document_courant) != feuille_avant)
        return;
    const Mots apres = mots_montres();
    oublie(j, sans(avant, apres));
    j.mots.merge(sans(apres, avant));
}

namespace {

// A sheet without its mark is what its file holds.
std::string verifie_enregistree(const Joueur& j, int rang) {
    if (documents.document_modifie(rang) != 0 || documents.a_son_fichier(rang) == 0) return "";
    const std::string& nom = reglages.table_ini(rang).nom;
    const std::string chemin = chemin_memoire(nom);
    // The program writes its own files for itself, whoever reads them.
    if (j.touches.contains(chemin) || capitales(chemin).starts_with("C:\\VOXTAB\\")) return "";
    if (lit_memoire(nom) == memoire.texte + "\r\n") return "";
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
    if (!j.faute.empty()) return j.faute;
    memoire.echec_operation = 0;
    memoire.reponses.clear();
    Mots trouves;
    if (programme_en_marche()) {
        if (std::string faute = verifie_lignes(); !faute.empty()) return faute;
        // What stood in the way of the working copies is gone.
        supprime_memoire("C:\\VOXTAB\\travail");
        if (std::string faute = fait_le_tour(j, trouves); !faute.empty()) return faute;
    }
    trouves.merge(mots_sur_disque());
    for (const std::string& mot : j.mots)
        if (!trouves.contains(mot)) return "lost: " + mot;
    return "";
}
