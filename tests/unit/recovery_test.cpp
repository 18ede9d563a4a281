// The start after a stop, where more was left than can be opened, or less can be done than asked. The
// recovery files are laid there as a run that was killed leaves them.
#include <doctest/doctest.h>

#include <new>
#include <string>
#include <vector>

#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/open_documents.hpp"
#include "documents/recovery.hpp"
#include "documents/recovery_start.hpp"
#include "platform/recovery_writer.hpp"
#include "shell/events.hpp"
#include "shell/window.hpp"
#include "support/program.hpp"

namespace {

const std::string kSecours = "C:\\VOXTAB\\secours\\";
const std::string kReprise = "C:\\VOXTAB\\reprise\\";

// A recovery file of a sheet, in the folder of a run before.
void laisse(const std::string& fichier, const std::string& nom, const std::string& texte,
            std::uint32_t rang, std::uint64_t numero) {
    pose_fichier(kSecours + fichier, forme_reprise({nom, rang, 1, 0, true, numero}, texte));
}

// Starts the program; the question gets that answer.
void demarre_et_repond(const char* reponse) {
    memoire.reponses.emplace_back(reponse);
    evenement_chargement();
}

std::vector<std::string> fichiers_sous(const std::string& dossier) {
    std::vector<std::string> noms;
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (chemin.starts_with(dossier) && !fichier.dossier) noms.push_back(chemin.substr(dossier.size()));
    return noms;
}

std::string texte_de(const std::string& chemin) {
    FicheReprise fiche;
    std::string texte;
    REQUIRE(lit_reprise(lit_memoire(chemin).value_or(""), fiche, texte) == EtatReprise::bonne);
    return texte;
}

std::string nom_de(int i) { return "C:\\F" + chiffres(i) + ".VXT"; }

// The program ends in the regular way; every question about a sheet gets No.
void quitte() {
    for (int i = 0; i < 20; ++i) memoire.reponses.emplace_back("non");
    evenement_menu("mnuQuitterItem");
    REQUIRE(fenetre.fermee);
}

}  // namespace

TEST_CASE("recovery: of seventeen sheets fifteen are opened, the others wait for the next start") {
    programme_neuf();
    for (int i = 1; i <= 17; ++i)
        laisse("x-" + chiffres(i) + ".VXT", nom_de(i), "T" + chiffres(i), static_cast<std::uint32_t>(i), 5);
    demarre_et_repond("oui");
    CHECK(documents.nombre_document == 15);
    for (int i = 1; i <= 15; ++i) CHECK(reglages.table_ini(i).nom == nom_de(i));
    CHECK(memoire.boites == std::vector<std::string>{cp(
              "2 feuilles restent dans le dossier secours ; elles seront proposées au prochain démarrage.")});
    CHECK(fichiers_sous(kSecours).size() == 17);
    quitte();
    CHECK(fichiers_sous(kSecours) == std::vector<std::string>{"x-16.VXT", "x-17.VXT"});
    memoire.reponses.clear();
    reinitialise_tout();
    demarre_et_repond("oui");
    CHECK(documents.nombre_document == 2);
    CHECK(memoire.texte == "T16");
}

TEST_CASE("recovery: of two untitled sheets one is opened, and the other one stays whole") {
    programme_neuf();
    laisse("x-1.VXT", "", "premiere", 1, 1);
    laisse("y-1.VXT", "", "seconde", 1, 2);
    demarre_et_repond("oui");
    CHECK(documents.nombre_document == 1);
    CHECK(memoire.texte == "premiere");
    CHECK(fenetre.titre == "VOXTAB SANSTITRE.VXT");
    CHECK(memoire.boites.size() == 1);
    quitte();
    CHECK(fichiers_sous(kSecours) == std::vector<std::string>{"y-1.VXT"});
    CHECK(texte_de(kSecours + "y-1.VXT") == "seconde");
}

TEST_CASE("recovery: two stops that left the same sheet: the later text is opened, the other one set aside") {
    programme_neuf();
    laisse("x-1.VXT", "C:\\A.VXT", "premiere", 1, 1);
    laisse("y-1.VXT", "c:\\a.vxt", "seconde", 2, 2);
    demarre_et_repond("oui");
    CHECK(documents.nombre_document == 1);
    CHECK(memoire.texte == "seconde");
    CHECK(fichiers_sous(kSecours) == std::vector<std::string>{"y-1.VXT"});
    CHECK(texte_de(kReprise + "A 2026-01-01.VXT") == "premiere");
}

TEST_CASE("recovery: a sheet's file that can't be read at the start isn't put in danger") {
    programme_neuf();
    pose_fichier("C:\\A.VXT", "B=1\r\n");
    pose_fichier(kSecours + "x-1.VXT", forme_reprise({"C:\\A.VXT", 1, 0, 0, true, 1, 5}, "A"));
    static PortFichiers vrais;
    vrais = port.fichiers;
    port.fichiers.lit = [](const std::string& chemin, std::string& contenu) {
        return chemin == "C:\\A.VXT" ? kAccesFichier : vrais.lit(chemin, contenu);
    };
    demarre_et_repond("oui");
    CHECK(texte_de(kReprise + "A 2026-01-01.VXT") == "A");
    CHECK(memoire.texte.empty());
    CHECK(fichiers_sous(kSecours).empty());
}

TEST_CASE("recovery: no memory while the window closes: it stays open, with its text") {
    programme_neuf();
    pose_fichier("C:\\A.VXT", "B=1\r\n");
    memoire.ligne_commande = "C:\\A.VXT";
    evenement_chargement();
    port.texte.pose_texte("7");
    evenement_texte_change();
    port.fichiers.existe = [](const std::string&) -> bool { throw std::bad_alloc(); };
    evenement_fermeture();
    CHECK(!fenetre.fermee);
    CHECK(memoire.texte == "7");
    CHECK(!evenement_fin_session());
    CHECK(texte_de(kSecours + "1-1.VXT") == "7");
}

TEST_CASE("recovery: the writer tries again to remove a file, at the end at the latest") {
    programme_neuf();
    static int essais;
    essais = 0;
    port.fichiers.efface = [](const std::string&) { return ++essais == 1 ? kAccesFichier : 0; };
    ouvre_ecriture_reprises();
    ordonne_effacement("C:\\VOXTAB\\secours\\x-1.VXT");
    attend_reprises();
    CHECK(essais == 1);
    CHECK(echec_reprises() == 0);
    ferme_ecriture_reprises();
    CHECK(essais == 2);
}

TEST_CASE("recovery: the writer doesn't try again to remove a file that isn't there") {
    programme_neuf();
    static int essais;
    essais = 0;
    port.fichiers.efface = [](const std::string&) { ++essais; return +kFichierAbsent; };
    ouvre_ecriture_reprises();
    ordonne_effacement("C:\\VOXTAB\\secours\\x-1.VXT");
    ferme_ecriture_reprises();
    CHECK(essais == 1);
}

TEST_CASE("recovery: a sheet given at the start keeps a row of fifteen") {
    programme_neuf();
    pose_fichier("C:\\G.VXT", "donnee\r\n");
    for (int i = 1; i <= 15; ++i)
        laisse("x-" + chiffres(i) + ".VXT", nom_de(i), "T", static_cast<std::uint32_t>(i), 5);
    memoire.ligne_commande = "C:\\G.VXT";
    demarre_et_repond("oui");
    CHECK(documents.nombre_document == 15);
    CHECK(memoire.texte == "donnee");
    CHECK(documents.document_modifie(1) == 0);
    CHECK(fichiers_sous(kSecours).size() == 15);
}

TEST_CASE("recovery: rows come back in their order, and the sheet shown last is shown") {
    programme_neuf();
    laisse("x-9.VXT", "C:\\A.VXT", "A", 1, 3);
    laisse("x-2.VXT", "C:\\B.VXT", "B", 3, 9);
    laisse("x-5.VXT", "", "U", 2, 4);
    demarre_et_repond("oui");
    CHECK(reglages.table_ini(1).nom == "C:\\A.VXT");
    CHECK(reglages.table_ini(2).nom == "SANSTITRE.VXT");
    CHECK(reglages.table_ini(3).nom == "C:\\B.VXT");
    CHECK(documents.document_courant == 3);
    CHECK(memoire.texte == "B");
    CHECK(memoire.messages == std::vector<std::string>{"B"});
}

TEST_CASE("recovery: a recent file of the same name gives its bookmark and no second row") {
    programme_neuf();
    reglages_par_defaut();
    Table<article> table = reglages.table_ini;
    table(1) = {"C:\\Z.VXT", 0, 0, 1};
    table(2) = {"C:\\A.VXT", 7, 0, 33};
    pose_fichier("C:\\VOXTAB\\VOXTAB.INI", enregistrements(table));
    laisse("x-1.VXT", "C:\\A.VXT", "A=1", 1, 1);
    demarre_et_repond("oui");
    CHECK(reglages.table_ini(1).nom == "C:\\A.VXT");
    CHECK(reglages.table_ini(1).champ3 == 33);
    CHECK(reglages.table_ini(2).nom == "C:\\Z.VXT");
    CHECK(reglages.table_ini(3).nom == "SANSTITRE.VXT");
}

TEST_CASE("recovery: files of a program that may be at work are left alone") {
    programme_neuf();
    laisse("x-1.VXT", "C:\\A.VXT", "A", 1, 1);
    memoire.reprise_a_nous = false;
    evenement_chargement();
    CHECK(memoire.journal.empty());
    port.texte.pose_texte("7");
    evenement_texte_change();
    CHECK(fichiers_sous(kSecours).size() == 2);
    quitte();
    CHECK(fichiers_sous(kSecours) == std::vector<std::string>{"x-1.VXT"});
}

TEST_CASE("recovery: a file that can't be read, or a copy that can't be written, costs no text") {
    for (int k = 1; k <= 8; ++k) {
        CAPTURE(k);
        programme_neuf();
        pose_dossier("C:\\VOXTAB\\travail");
        laisse("x-1.VXT", "C:\\A.VXT", "A", 1, 1);
        laisse("x-2.VXT", "C:\\B.VXT", "B", 2, 2);
        memoire.echec_operation = k;
        memoire.echec_numero = kDisquePlein;
        demarre_et_repond("oui");
        memoire.echec_operation = 0;
        CHECK(texte_de(kSecours + "x-1.VXT") == "A");
        CHECK(texte_de(kSecours + "x-2.VXT") == "B");
        for (int rang = 1; rang <= documents.nombre_document; ++rang) {
            if (documents.document_modifie(rang) == 0) continue;
            CHECK(documents.texte(rang) == reglages.table_ini(rang).nom.substr(3, 1));
            CHECK(memoire.texte == documents.texte(documents.document_courant));
            evenement_menu("mnuFichierSuivantItem");
        }
    }
}

TEST_CASE("recovery: a sheet that can't be set aside stays, and is told") {
    programme_neuf();
    laisse("x-1.VXT", "C:\\A.VXT", "A", 1, 1);
    pose_fichier("C:\\VOXTAB\\reprise", "a file of that name");
    demarre_et_repond("non");
    CHECK(texte_de(kSecours + "x-1.VXT") == "A");
    CHECK(memoire.boites == std::vector<std::string>{cp(
              "1 feuille reste dans le dossier secours ; elle sera proposée au prochain démarrage.")});
}

TEST_CASE("recovery: of more than a hundred sheets set aside the oldest go") {
    programme_neuf();
    for (int i = 10; i < 110; ++i)
        pose_fichier(kReprise + "f" + chiffres(i) + (i < 20 ? " 2025-12-20.VXT" : " 2025-12-25.VXT"),
                     forme_reprise({"", 1, 0, 0, true, 1}, "T"));
    pose_fichier(kReprise + "notes 2025-12-19.VXT", "the user's own\r\n");
    laisse("x-1.VXT", "C:\\A.VXT", "A", 1, 1);
    laisse("x-2.VXT", "C:\\B.VXT", "B", 1, 1);
    demarre_et_repond("non");
    const auto restent = fichiers_sous(kReprise);
    CHECK(restent.size() == kFeuillesGardees);
    CHECK(lit_memoire(kReprise + "notes 2025-12-19.VXT"));
    CHECK(lit_memoire(kReprise + "A 2026-01-01.VXT"));
    CHECK(!lit_memoire(kReprise + "f10 2025-12-20.VXT"));
    CHECK(lit_memoire(kReprise + "f19 2025-12-20.VXT"));
    CHECK(lit_memoire(kReprise + "f20 2025-12-25.VXT"));
}

TEST_CASE("recovery: opened recovery files are written anew under their own names") {
    programme_neuf();
    laisse("x-1.VXT", "C:\\A.VXT", "A", 1, 7);
    demarre_et_repond("oui");
    port.texte.pose_texte("A changed");
    evenement_texte_change();
    CHECK(fichiers_sous(kSecours) == std::vector<std::string>{"x-1.VXT"});
    CHECK(texte_de(kSecours + "x-1.VXT") == "A changed");
}
