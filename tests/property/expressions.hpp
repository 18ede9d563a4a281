// Random formulas with the value that they must have, computed beside the engine on the tree from
// which the text is written.
#pragma once

#include <array>
#include <string>

#include "property/choice.hpp"

// What the generator knows of the sheet's variables, 1 to 26 for A to Z.
struct Variable {
    bool definie = false;
    bool connue = false;  // `valeur` is what the engine must hold, to the bit
    double valeur = 0;
    int rang = 0;  // how many unknown values were piled up: few, so that nothing overflows
};
using Variables = std::array<Variable, 27>;

// A formula, in capitals, Windows-1252.
struct Formule {
    std::string texte;
    bool connue = true;
    double valeur = 0;
    int rang = 0;
};

class Expressions {
public:
    Expressions(Tirage& tirage, const Variables& variables) : t(tirage), v(variables) {}

    // A sum of terms, brackets at most `profondeur` deep. Without errors, whatever the variables
    // hold.
    Formule somme(int profondeur);
    Formule litteral();  // any form of number
    Formule entier(int bas, int haut);

private:
    Formule terme(int profondeur);
    Formule puissance(int profondeur);
    Formule non(int profondeur);
    Formule facteur(int profondeur);
    Formule variable();
    Formule parenthese(int profondeur);
    Formule fonction(int profondeur);
    Formule fonction_d_un_argument();
    Formule fonction_exacte();
    Formule fonction_bornee();
    void ajoute_terme(Formule& somme, int profondeur);
    void ajoute_facteur(Formule& produit, int profondeur);
    std::string operateur(const char* signe);

    Tirage& t;
    const Variables& v;
    bool dans_argument = false;  // a call inside an argument would lose the sum outside
};

// A formula whose letters are in capitals, in small letters, or mixed.
std::string change_casse(Tirage& t, std::string texte);
