// The options of voxtab-calc, which the tests of sheets use too. Sets the modes and the settings.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

struct OptionsCalcul {
    std::string affichage = "flottant";        // entier, flottant, puissance, hexa
    int decimales = 2;                         // 0 to 100
    std::string angle = "degre";               // degre, radian, grade
    std::string matrice = "ligne";             // ligne, colonne
    std::string statistiques = "complet";      // complet, restreint
    bool colonne = false;                      // the column total too
    bool en_place = false;                     // back into the file
    std::string etude;                         // path of the studies to write, "" for none
    std::string son;                           // path of the sound file of the curves, "" for none
    std::string page;                          // path of the page of HTML to write, "" for none
    std::string importe;                       // path of data to put in front, "" for none
    std::string forme;                         // what they become, "" for what fits
    std::string donnees;                       // path of the CSV file to write, "" for none
    int table = 0;                             // which table of the sheet goes there, 0: the only one
    bool point = false;                        // with decimal points
    bool verifier = false;                     // what was read otherwise than it looks, and no sheet
    bool json = false;                         // that for programs
    std::string codage;                        // "", utf-8, windows-1252
    std::string feuille;                       // path; "" or "-": standard input
    std::vector<std::string> feuilles;         // paths, where there are several; else none
    std::size_t curseur = 0;                   // tests only: cursor before the pass, bytes from 0
};

// What the program ends with.
enum Statut : int { kReussite = 0, kLigneEnErreur = 1, kImpossible = 2, kFauxProbable = 3 };

// What reading the command line came to.
struct LectureOptions {
    OptionsCalcul options;
    std::optional<int> statut;                 // the program ends with this status
    std::string sortie;                        // what it prints then on standard output
    std::string erreur;                        // or on standard error, one French line
};

// Reads the words of a command line, the program's name not included.
LectureOptions lis_options(const std::vector<std::string>& mots, bool pour_tests = false);

// Sets the number modes and the layouts that the options ask for.
void applique_options(const OptionsCalcul& options);
