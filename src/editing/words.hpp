// Commands of words, tabulations, lines and the selection: they move in the text and say where the cursor
// came to. Change the cursor and the text.
#pragma once

#include <string>

struct Caracteres {
    std::string caracteres_visibles;         // codes 33 to 255
    std::string caracteres_identificateur;   // digits, letters, "_", codes 128 to 255
    std::string lettres_majuscules;          // A to Z
};
extern Caracteres caracteres;

void batit_caracteres();                     // the three tables, at start-up

void dit_ligne_sous_curseur();               // after a move: a cursor between the two characters of a
                                             // line end is on the line below

void chaineGAUCHE();
void chainedroite();
void mnuEffaceMotItem();
void mnuChaineGaucheItem();
void mnuChaineDroiteItem();
void mnuTabulationAvantItem();
void mnuTabulationArriereItem();
void mnuXYItem();
void mnuNumeroLigneItem();
void mnuSelectionToutItem();
