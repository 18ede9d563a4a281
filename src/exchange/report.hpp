// What is known of a calculated sheet: its text, and for each calculated line what it works with. Plain data.
#pragma once

#include <optional>
#include <string>
#include <vector>

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
    bool hasard = false;                   // random numbers were drawn for it
    bool copiee = false;                   // the sheet shows other random numbers: its lines are as they stand there
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
