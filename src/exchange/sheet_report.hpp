// What a sheet holds, calculated aside: for each calculated line its formula, its result, and the data and functions
// that it works with, with all their digits. The calculation is silent, and everything that it changes is put back.
#pragma once

#include <string>
#include <vector>

#include "exchange/data_table.hpp"
#include "exchange/report.hpp"

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
