// What belongs to one open sheet stays with it, whatever happens to the list.
#include <doctest/doctest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "documents/open_documents.hpp"
#include "documents/working_copies.hpp"
#include "platform/paths.hpp"
#include "settings/settings.hpp"
#include "shell/events.hpp"
#include "shell/reader_files.hpp"
#include "support/program.hpp"

namespace {

using Identites = std::vector<std::uint64_t>;

Identites identites() {
    Identites toutes;
    for (int i = 1; i <= documents.nombre_document; ++i) toutes.push_back(documents.identite(i));
    return toutes;
}

void ouvre(const std::string& chemin) {
    memoire.reponses.push_back(chemin);
    evenement_menu("mnuOuvrirItem");
}

// A.VXT, B.VXT and C.VXT are open, the last one current.
void demarre_avec_trois() {
    programme_neuf();
    for (const std::string nom : {"A", "B", "C", "D"})
        pose_fichier("C:\\" + nom + ".VXT", nom + "=1\r\n");
    memoire.ligne_commande = "C:\\A.VXT";
    evenement_chargement();
    ouvre("C:\\B.VXT");
    ouvre("C:\\C.VXT");
}

}  // namespace

TEST_CASE("documents: every open sheet has a number of its own, which is never given again") {
    demarre_avec_trois();
    CHECK(identites() == Identites{1, 2, 3});
    evenement_menu("mnuFichierSuivantItem");
    evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{2, 3});
    evenement_menu("mnuNouveauItem");
    CHECK(identites() == Identites{2, 3, 4});
    // The empty sheet gives way.
    ouvre("C:\\D.VXT");
    CHECK(identites() == Identites{2, 3, 5});
    evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{2, 3});
    // The sheet closed last is still greyed in the menu; the one after it can be chosen.
    evenement_menu("mnuOuvrirSousMenuItem", 4);
    CHECK(identites() == Identites{2, 3, 6});
    while (documents.nombre_document > 1) evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{2});
    // The last one gives way to the untitled sheet.
    evenement_menu("mnuFermerItem");
    CHECK(identites() == Identites{7});
}

TEST_CASE("documents: dots of folders don't count, with either separator") {
    programme_neuf();
    CHECK(coupe_premier_point("C:\\Users\\jean.dupont\\x.VXT") == "C:\\Users\\jean.dupont\\x.VXT");
    CHECK(coupe_premier_point("C:\\a.b.VXT") == "C:\\a.b.V");
    CHECK(coupe_premier_point("C:/jean.dupont/x.y.VXT") == "C:/jean.dupont/x.y.V");
    CHECK(coupe_premier_point("C:\\jean.dupont\\x") == "C:\\jean.dupont\\x");
    port.systeme.separateur = '/';
    CHECK(coupe_premier_point("/home/jean.dupont/x.VXT") == "/home/jean.dupont/x.VXT");
    CHECK(coupe_premier_point("/home/jean.dupont/a.b.VXT") == "/home/jean.dupont/a.b.V");
    CHECK(premier_point("/home/jean.dupont/x") == std::string::npos);
}

TEST_CASE("documents: a sheet below a folder with a dot is saved, backed up and listed in its place") {
    programme_neuf();
    port.systeme.separateur = '/';
    memoire.dossier_programme = "/home/jean.dupont/voxtab";
    pose_dossier(memoire.dossier_programme);
    pose_fichier("/home/jean.dupont/x.VXT", "aaa\r\n");
    memoire.ligne_commande = "/home/jean.dupont/x.VXT";
    evenement_chargement();
    CHECK(memoire.texte == "aaa");
    port.texte.pose_texte("1aaa");
    evenement_texte_change();
    evenement_menu("mnuEnregistrerItem");
    CHECK(lit_memoire("/home/jean.dupont/x.VXT") == "1aaa\r\n");
    CHECK(lit_memoire("/home/jean.dupont/x.bak") == "aaa\r\n");
    CHECK(lignes_a_garder()(1).nom == "/home/jean.dupont/x.VXT");
    evenement_menu("mnuQuitterItem");
    CHECK_FALSE(lit_memoire("/home/jean.dup"));
    CHECK(memoire.boites.empty());
}

TEST_CASE("documents: on a system whose separator is / capitals make another file") {
    programme_neuf();
    CHECK(meme_chemin("C:\\a\\b.VXT", "c:/A/B.vxt"));
    port.systeme.separateur = '/';
    CHECK_FALSE(meme_chemin("/a/b.VXT", "/a/B.VXT"));
    CHECK(meme_chemin("/a/b.VXT", "/a/b.VXT"));
}

TEST_CASE("documents: without the reader's disk its installation asks and shows no box") {
    programme_neuf();
    supprime_memoire("C:");
    jaws("voxtab");
    CHECK(memoire.boites.empty());
    REQUIRE(memoire.saisies.size() == 1);
    CHECK(memoire.saisies[0].propose == "C:\\JAWS\\settings\\fra");
}

TEST_CASE("documents: working copies of paths that are long have short names of their own") {
    programme_neuf();
    reglages.dossier_travail = "C:\\VOXTAB\\travail\\";
    const std::string long1 = "C:\\" + std::string(220, 'a') + "1\\x.VXT";
    const std::string long2 = "C:\\" + std::string(220, 'a') + "2\\x.VXT";
    CHECK(copie_pour("C:\\calc\\essai.VXT", 1) == "C:\\VOXTAB\\travail\\C__calc_essai.VXT");
    CHECK(copie_pour(long1, 1) != copie_pour(long2, 1));
    CHECK(copie_pour(long1, 1).size() < 100);
    // 150 accents are 300 bytes on a disk with UTF-8 names.
    CHECK(copie_pour("C:\\" + std::string(150, '\xE9') + ".VXT", 1).size() < 100);
}
