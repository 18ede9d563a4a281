// Progressions and the franc and euro conversions. Read l_argument1 to l_argument3 of `moteur`.
// The franc-euro rate is the legal one, 6.55957 francs for one euro.
#pragma once

#include <string>

// Results of SERIEA, SERIEG, SUITEA and SUITEG: sums of the first n terms and terms of rank n, from a
// first term a and a difference or ratio r.
void serie_arithmetique(double& resultat) noexcept;
void serie_geometrique(double& resultat) noexcept;
void suite_arithmetique(double& resultat) noexcept;
void suite_geometrique(double& resultat) noexcept;

void r_franc_euro(double& montant) noexcept;   // francs to euros, rounded by arrondi
void r_euro_franc(double& montant);            // euros to francs, rounded by Forme_montant
void arrondi(double& montant) noexcept;        // two decimals, through the text of the amount
std::string Forme_montant(double montant);     // two decimals, without ".00"
