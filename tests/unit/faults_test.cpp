// Failing files: in each scenario the k-th file operation fails, for k = 1, 2, 3 and so on. The
// program goes on, what is heard is exactly what is due, every file is whole, and the user's texts
// are somewhere. Scenarios and their steps are written as in tests/program.
#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "documents/open_documents.hpp"
#include "documents/recovery_file.hpp"
#include "helpers.hpp"
#include "settings/settings.hpp"
#include "shell/window.hpp"
#include "support/program.hpp"
#include "support/script.hpp"
#include "support/snapshot.hpp"
#include "unit/faults_scenarios.hpp"

namespace {

using Contenus = std::map<std::string, std::set<std::string>>;  // by path

constexpr std::array kNumeros = {75, 76, 61, 53};
const std::string kIni = "C:\\VOXTAB\\VOXTAB.INI";
const std::string kTravail = "C:\\VOXTAB\\TRAVAIL\\";
const std::string kSecours = "C:\\VOXTAB\\SECOURS\\";

// Runs steps one after the other.
void joue(const Textes& etapes) {
    for (const std::string& etape : etapes) execute_etape(1, etape);
}

// No step was refused, and none ended in a failure that nothing caught.
void verifie_etapes() {
    for (const EchecEtape& e : script.echecs)
        FAIL_CHECK(e.etape << " | " << e.attendu << " | " << e.obtenu);
}

// Adds the current files to what each path may hold.
void note_contenus(Contenus& contenus) {
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier) contenus[capitales(chemin)].insert(fichier.contenu);
}

// The file slots while every content is noted, and where it is noted.
struct Surveillance {
    PortFichiers vrai{};
    Contenus* contenus = nullptr;
};
Surveillance surveillance;

int note_apres(int numero) {
    note_contenus(*surveillance.contenus);
    return numero;
}

// From now on the contents of all files are noted after each operation that writes one.
void surveille(Contenus& contenus) {
    surveillance = {port.fichiers, &contenus};
    using Chemin = const std::string&;
    port.fichiers.remplace = [](Chemin a, Chemin b) {
        return note_apres(surveillance.vrai.remplace(a, b));
    };
    port.fichiers.copie = [](Chemin a, Chemin b) {
        return note_apres(surveillance.vrai.copie(a, b));
    };
    port.fichiers.deplace = [](Chemin a, Chemin b) {
        return note_apres(surveillance.vrai.deplace(a, b));
    };
}

// What each path held at some moment of the run without a failure; its number of file operations.
int course_saine(const Scenario& scenario, Contenus& contenus) {
    nouveau_script(false);
    joue(scenario.avant);
    note_contenus(contenus);
    surveille(contenus);
    const int operations = memoire.operations_fichier;
    joue(scenario.action);
    verifie_etapes();
    return memoire.operations_fichier - operations;
}

// The boxes, without the questions, one a line.
std::string boites_entendues() {
    std::string toutes;
    for (const std::string& boite : boites()) toutes += boite + "\n";
    return toutes;
}

// The boxes that are due: "N" stands for the number of the failure.
std::string boites_dues(const Textes& modeles, int numero) {
    std::string toutes;
    for (const std::string& modele : modeles) {
        std::string boite = modele;
        if (boite.starts_with("démarrage:"))
            boite = boite_demarrage(boite.substr(std::string("démarrage:").size()), numero);
        for (std::size_t n = boite.find("<N>"); n != std::string::npos; n = boite.find("<N>"))
            boite.replace(n, 3, std::to_string(numero));
        toutes += boite + "\n";
    }
    return toutes;
}

// The settings file has its 22 records, with no other names than those of the files of the run.
void verifie_reglages(const std::string& contenu, const Contenus& contenus) {
    CHECK(contenu.size() == 5874);
    for (std::size_t rang = 0; rang < 15 && contenu.size() == 5874; ++rang) {
        const std::string nom(sans_blancs(contenu.substr(rang * 267, 255)));
        CAPTURE(nom);
        CHECK((nom == "SANSTITRE.VXT" || contenus.contains(capitales(nom))));
    }
}

bool reprise_entiere(const std::string& contenu) {
    FicheReprise fiche;
    std::string texte;
    return lit_reprise(contenu, fiche, texte) == EtatReprise::bonne;
}

// Every file is an old or a new one, whole; those outside of the working folder are all there. Recovery
// files come and go with the sheets.
void verifie_fichiers(const Contenus& contenus, const std::set<std::string>& anciens) {
    for (const auto& entree : memoire.fichiers) {
        const auto& chemin = entree.first;
        const auto& fichier = entree.second;
        if (fichier.dossier) continue;
        CAPTURE(chemin);
        CAPTURE(fichier.contenu);
        if (capitales(chemin).starts_with(kSecours)) {
            CHECK(reprise_entiere(fichier.contenu));
            continue;
        }
        const auto la = contenus.find(capitales(chemin));
        const bool connu = la != contenus.end() && la->second.contains(fichier.contenu);
        if (capitales(chemin) == kIni && !connu)
            verifie_reglages(fichier.contenu, contenus);
        else
            CHECK(connu);
    }
    for (const std::string& chemin : anciens) {
        CAPTURE(chemin);
        CHECK((lit_memoire(chemin) || chemin.starts_with(kTravail) || chemin.starts_with(kSecours) ||
               chemin.ends_with("VERJAWS.INI")));
    }
}

// The text is on the screen or in a file, with or without its last line end.
bool existe_texte(const std::string& texte) {
    if (programme_en_marche() && memoire.texte == texte) return true;
    return std::any_of(memoire.fichiers.begin(), memoire.fichiers.end(), [&](const auto& f) {
        return f.second.contenu == texte || f.second.contenu == texte + "\r\n";
    });
}

// All texts are there.
void verifie_textes(const Textes& textes) {
    for (const std::string& texte : textes) {
        CAPTURE(texte);
        CHECK(existe_texte(texte));
    }
}

// No two open sheets have one path or one working copy: what is shown is saved to its own file.
void verifie_copies() {
    std::set<std::string> chemins, copies;
    for (int rang = 1; rang <= documents.nombre_document; ++rang) {
        CHECK(chemins.insert(capitales(reglages.table_ini(rang).nom)).second);
        CHECK(copies.insert(capitales(documents.nom_copie(rang))).second);
        CHECK(capitales(documents.nom_copie(rang)).starts_with(kTravail));
    }
}

// The user goes once around all sheets, each of which is written to its copy and read again.
void fait_le_tour() {
    if (!programme_en_marche()) return;
    for (int i = 0; i < documents.nombre_document; ++i) joue({"touche F6"});
}

// Another sheet is opened and shown.
void verifie_ouverture() {
    const int ouverts = documents.nombre_document;
    joue({"répond \"C:\\SUITE.VXT\"", "touche Ctrl+O"});
    CHECK(memoire.texte == "5*5");
    CHECK(documents.nombre_document == ouverts + 1);
    CHECK(boites_entendues() == "");
}

// The program takes the next commands: a line is calculated, a sheet is opened.
void verifie_suite() {
    if (!programme_en_marche()) return;
    oublie_entendu();
    memoire.reponses.clear();
    pose_fichier("C:\\SUITE.VXT", "5*5\r\n");
    joue({"curseur 0", "tape \"7*6¶\"", "curseur 0", "touche Alt+C"});
    CHECK(memoire.texte.starts_with("7*6 = 42\r\n"));
    CHECK(boites_entendues() == "");
    verifie_ouverture();
    verifie_etapes();
}

// What existed before the action, in capitals.
std::set<std::string> chemins_du_moment() {
    std::set<std::string> chemins;
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier) chemins.insert(capitales(chemin));
    return chemins;
}

// Runs the scenario with the k-th operation of its action failing.
void course_malade(const Scenario& scenario, const Contenus& contenus, int k, int numero) {
    nouveau_script(false);
    joue(scenario.avant);
    const std::set<std::string> anciens = chemins_du_moment();
    oublie_entendu();
    memoire.echec_operation = memoire.operations_fichier + k;
    memoire.echec_numero = numero;
    joue(scenario.action);
    CHECK(memoire.operations_fichier >= memoire.echec_operation);
    const Rapport& rapport = scenario.rapports[static_cast<std::size_t>(k) - 1];
    CHECK(boites_entendues() == boites_dues(rapport.boites, numero));
    CHECK(programme_en_marche() == rapport.continue_apres);
    verifie_etapes();
    verifie_fichiers(contenus, anciens);
    verifie_textes(scenario.textes);
    memoire.echec_operation = 0;
    if (programme_en_marche()) verifie_copies();
    fait_le_tour();
    verifie_textes(scenario.textes);
    verifie_suite();
}

}  // namespace

TEST_CASE("faults: each file operation of each scenario fails once with each number") {
    for (const Scenario& scenario : scenarios()) {
        CAPTURE(scenario.nom);
        Contenus contenus;
        const int operations = course_saine(scenario, contenus);
        verifie_textes(scenario.textes);
        CHECK(boites_entendues().empty());
        REQUIRE(static_cast<std::size_t>(operations) == scenario.rapports.size());
        for (int k = 1; k <= operations; ++k)
            for (const int numero : kNumeros) {
                CAPTURE(k);
                CAPTURE(numero);
                course_malade(scenario, contenus, k, numero);
            }
    }
}
