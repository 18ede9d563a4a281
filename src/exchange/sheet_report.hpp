// What a sheet holds, calculated aside: for each calculated line its formula, its result, and the data and functions
// that it works with, with all their digits. The calculation is silent, and everything that it changes is put back.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/data_table.hpp"
#include "state/matrices.hpp"
#include "state/noted_data.hpp"

// A point of a curve; none where the function has no value.
struct PointTrace {
    double x = 0;
    std::optional<double> y;
};

struct LigneRapport {
    int numero = 0;                        // of the line in the calculated text, from 1
    std::string formule;                   // without comment and old result
    std::string resultat;                  // what stands behind it: " = 5", " =1,2;3,4 =2,2", or nothing
    bool erreur = false;                   // it has failed
    std::optional<std::string> mathml;     // the formula, when it is read as it looks
    char matrice = 0;                      // letter of the matrix that it defines or gives; 0: none
    bool definition = false;               // ... it is the heading of a DEFM block
    TableMatrice elements;                 // the matrix
    DonneesNotees donnees;                 // data set, table or interval
    double pente = 0, ordonnee = 0;        // of the line of regression of pairs
    std::string fonction;                  // of INC and AIR
    std::optional<std::string> mathml_fonction;
    std::vector<PointTrace> courbe;        // its values over the interval
};

struct Rapport {
    std::string texte;                     // the calculated sheet
    std::vector<LigneRapport> lignes;
    bool complet = true;                   // neither the user nor the memory has ended it before its time
};

// The report of the sheet; with formulas and curves where `avec_formules`, with the data alone otherwise.
Rapport rapport_de(const std::string& texte, bool avec_formules);

// A table that a line of the sheet holds, and what it is: "table de X, ligne 3".
struct DonneesDeFeuille {
    std::string nom;
    TableDonnees table;
};
std::vector<DonneesDeFeuille> donnees_de(const Rapport& rapport);

// The data set of a line as a table: x or x and y, and the frequencies unless all are 1.
TableDonnees table_des_groupes(const DonneesNotees& donnees);
TableDonnees table_de_matrice(char lettre, const TableMatrice& elements);
TableDonnees table_des_rangees(const DonneesNotees& donnees);
