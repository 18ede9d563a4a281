// Random events of a user who never discards a text. Changes nothing but the generator.
#include "lost/sequence.hpp"

#include <array>
#include <string_view>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "shell/commands.hpp"
#include "shell/window.hpp"
#include "support/memory.hpp"
#include "support/script.hpp"

namespace {

// Paths that are like each other: capitals, dots, names of working copies, backups, places of the
// program's own, folders that aren't there.
constexpr std::array kChemins = {
    "C:\\A.VXT",          "C:\\B.VXT",           "c:\\a.vxt",         "C:\\m\\a.VXT",
    "C:\\m_a.VXT",        "C:\\M_A.VXT_2",       "C:\\m\\a.b.VXT",    "C:\\m\\a.b.V",
    "C:\\m\\a.bak",       "C:\\A.BAK",           "C:\\j.d\\x.VXT",    "C:\\j.d\\x.y.VXT",
    "C:\\j",              "C:\\rien\\N.VXT",     "C:\\m",             "C:\\N",
    "D.VXT",              "C:\\m\\..\\B.VXT",    "C:/A.VXT",          "SANSTITRE.VXT",
    "C:\\SANSTITRE.VXT",  "C:\\VOXTAB\\VOXTAB.INI", "C:\\VOXTAB\\travail\\C__A.VXT",
    "C:\\VOXTAB\\travail\\SANSTITRE.VXT", "C:\\VOXTAB\\E.VXT", "C:\\F.VXT", "C:\\G.VXT",
    "C:\\m\\H.VXT",       "C:\\m\\I.VXTX",       "C:\\m\\I.VXT",
    "C:\\VOXTAB\\reprise\\a 2026-01-01.VXT", "C:\\VOXTAB\\reprise\\sans titre 2026-01-01.VXT",
    "C:\\VOXTAB\\secours\\1-1.VXT", "C:\\VOXTAB\\outils.txt", "C:\\VOXTAB\\verjaws.ini",
};
// The first ones are taken more often: what goes wrong needs one path several times.
constexpr int kSouvent = 12;

// Commands of the menus that bear on documents; the others are drawn from the whole tree.
constexpr std::array kDocuments = {"mnuNouveauItem",        "mnuFichierSuivantItem",
                                   "mnuFichierPrecedentItem", "mnuEnregistrerItem",
                                   "mnuFermerItem",         "mnuQuitterItem"};
constexpr std::array kVues = {"choisit mnuAideTxtItem", "choisit mnuApropos", "touche Alt+F1",
                              "touche F1",              "touche F8",          "choisit mnuCouleurEcran",
                              "touche Échap",           "clique CmdVoxtab",   "clique CmdQuitter",
                              "clique CmdAngle",        "clique OptionRadian"};
constexpr std::array kEdition = {"touche Suppr",  "touche Arrière",    "touche Ctrl+Z",
                                 "touche Ctrl+Z", "touche Ctrl+Maj+Z", "touche Alt+C",
                                 "touche Alt+C",  "touche Ctrl+Entrée", "touche Entrée",
                                 "touche Bas",    "touche Fin",        "touche Ctrl+A"};
constexpr std::array kNumeros = {53, 61, 70, 75, 76};
constexpr int kPanneLointaine = 40;   // operations until the one that fails, at most

std::string cite(const std::string& texte) { return "\"" + texte + "\""; }

std::string tire_chemin(Tirage& t) {
    if (t.une_fois_sur(2)) return kChemins[static_cast<std::size_t>(t.entre(0, kSouvent - 1))];
    return t.un_de(kChemins);
}

// An answer to a question that a command may put: Yes, Cancel, a path, a word. Never No where a
// sheet would be given up.
void ajoute_reponse(Tirage& t, Etapes& etapes) {
    switch (t.entre(1, 8)) {
        case 1: etapes.push_back("annule"); break;
        case 2:
        case 3: etapes.push_back("répond oui"); break;
        case 4: etapes.push_back("répond \"" + std::to_string(t.entre(0, 30)) + "\""); break;
        default: etapes.push_back("répond " + cite(tire_chemin(t))); break;
    }
}

void ajoute_reponses(Tirage& t, Etapes& etapes, int maximum) {
    for (int n = t.entre(0, maximum); n > 0; --n) ajoute_reponse(t, etapes);
}

// A line of its own, which no calculation changes, at any place of the text.
void ajoute_frappe(Tirage& t, Etapes& etapes, int& mot) {
    // At a line's start: what stands after a result is the result's.
    etapes.push_back(t.une_fois_sur(2) ? "touche Début" : "curseur 0");
    if (t.une_fois_sur(6))
        etapes.push_back("tape \"2+" + std::to_string(t.entre(1, 9)) + "¶\"");
    else
        etapes.push_back("tape \"! k" + std::to_string(mot++) + "k¶\"");
}

void ajoute_enregistrement(Tirage& t, Etapes& etapes) {
    if (t.une_fois_sur(4)) ajoute_reponse(t, etapes);
    for (int n = t.entre(1, 2); n > 0; --n) etapes.push_back("répond " + cite(tire_chemin(t)));
    etapes.push_back(t.une_fois_sur(2) ? "touche Ctrl+Maj+S" : "touche Ctrl+S");
}

void ajoute_ouverture(Tirage& t, Etapes& etapes) {
    etapes.push_back("répond " + cite(tire_chemin(t)));
    etapes.push_back("choisit mnuOuvrirItem");
}

void ajoute_document(Tirage& t, Etapes& etapes) {
    if (t.une_fois_sur(4)) {
        etapes.push_back("choisit mnuOuvrirSousMenuItem " +
                         std::to_string(t.entre(1, documents.nombre_document + 5)));
        return;
    }
    const std::string commande = t.un_de(kDocuments);
    // A close or a quit that goes to its end needs a Yes and perhaps a path for each sheet.
    if (t.une_fois_sur(2))
        for (int n = t.entre(1, 6); n > 0; --n) {
            etapes.push_back("répond oui");
            if (t.une_fois_sur(2)) etapes.push_back("répond " + cite(tire_chemin(t)));
        }
    else
        ajoute_reponses(t, etapes, 3);
    etapes.push_back(commande == "mnuQuitterItem" && t.une_fois_sur(2) ? "ferme"
                                                                       : "choisit " + commande);
}

// One of the files that the program has made for itself, or "".
std::string tire_fichier_du_programme(Tirage& t) {
    std::vector<std::string> chemins;
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier && capitales(chemin).starts_with("C:\\VOXTAB\\")) chemins.push_back(chemin);
    return chemins.empty() ? "" : t.un_de(chemins);
}

// Somebody else takes a file or a folder away, or puts one there.
void ajoute_voisin(Tirage& t, Etapes& etapes) {
    std::string chemin = tire_chemin(t);
    if (t.une_fois_sur(3)) {
        chemin = "C:\\VOXTAB\\travail";
        if (t.une_fois_sur(2))
            chemin = std::string(documents.nom_copie(t.entre(1, documents.nombre_document)));
    } else if (t.une_fois_sur(6)) {
        chemin = tire_fichier_du_programme(t);
    }
    if (chemin.empty()) return;
    switch (t.entre(1, 4)) {
        case 1:
            etapes.push_back("supprime " + cite(chemin));
            etapes.push_back("dossier " + cite(chemin));
            break;
        case 2: etapes.push_back("fichier " + cite(chemin) + " \"2+3¶\""); break;
        default: etapes.push_back("supprime " + cite(chemin)); break;
    }
}

void ajoute_panne(Tirage& t, Etapes& etapes) {
    const int dans = t.entre(1, t.une_fois_sur(4) ? kPanneLointaine : 8);
    etapes.push_back("échec " + std::to_string(dans) + " " + std::to_string(t.un_de(kNumeros)));
}

// Any command of the tree, and any answers. The printer's and the fonts' dialogs are among them.
void ajoute_commande(Tirage& t, Etapes& etapes) {
    const std::string nom(t.un_de(lignes_menu()).nom);
    ajoute_reponses(t, etapes, 2);
    etapes.push_back("choisit " + nom);
}

void ajoute_depart(Tirage& t, Etapes& etapes) {
    // Sheets of a program that was stopped are taken back, or set aside.
    if (t.une_fois_sur(3)) ajoute_panne(t, etapes);
    if (!t.une_fois_sur(4)) etapes.push_back(t.une_fois_sur(3) ? "répond non" : "répond oui");
    etapes.push_back(t.une_fois_sur(2) ? "redémarre" : "redémarre " + cite(tire_chemin(t)));
}

}  // namespace

Etapes tire_depart(Tirage& t) {
    Etapes etapes{"fichier \"C:\\VOXTAB\\aide.txt\" \"guide¶suite¶\"",
                  "fichier \"C:\\VOXTAB\\fonction.txt\" \"COS (x)¶SIN (x)¶\"", "dossier \"C:\\m\"",
                  "dossier \"C:\\j.d\""};
    for (const char* const chemin : kChemins) {
        const std::string nom = chemin;
        if (nom.starts_with("C:\\VOXTAB\\") || nom == "C:\\m" || nom.find("rien") != nom.npos) continue;
        if (t.une_fois_sur(2)) etapes.push_back("fichier " + cite(nom) + " \"B=2¶\"");
    }
    if (t.une_fois_sur(12))
        for (int n = 1; n <= 14; ++n)
            etapes.push_back("fichier \"C:\\p\\" + std::to_string(n) + ".VXT\" \"B=3¶\"");
    const bool tous = etapes.back().starts_with("fichier \"C:\\p");
    etapes.push_back(tous || t.une_fois_sur(2) ? "démarre" : "démarre " + cite(tire_chemin(t)));
    if (tous)
        for (int n = 1; n <= t.entre(10, 14); ++n) {
            etapes.push_back("répond \"C:\\p\\" + std::to_string(n) + ".VXT\"");
            etapes.push_back("choisit mnuOuvrirItem");
        }
    return etapes;
}

Etapes tire_evenement(Tirage& t, int& mot) {
    Etapes etapes;
    if (!programme_en_marche() || t.une_fois_sur(20)) {
        ajoute_depart(t, etapes);
        return etapes;
    }
    const int sort = t.entre(1, 100);
    if (t.une_fois_sur(60)) etapes.push_back("fin_session");
    else if (t.une_fois_sur(60))
        etapes.push_back("panne_secours " + std::to_string(t.une_fois_sur(2) ? 0 : t.un_de(kNumeros)));
    else if (sort <= 24) ajoute_frappe(t, etapes, mot);
    else if (sort <= 34) ajoute_enregistrement(t, etapes);
    else if (sort <= 46) ajoute_ouverture(t, etapes);
    else if (sort <= 68) ajoute_document(t, etapes);
    else if (sort <= 74) etapes.push_back(t.un_de(kVues));
    else if (sort <= 80) etapes.push_back(t.un_de(kEdition));
    else if (sort <= 86) ajoute_voisin(t, etapes);
    else if (sort <= 94) ajoute_panne(t, etapes);
    else ajoute_commande(t, etapes);
    return etapes;
}
