// Commands of words, tabulations, lines and the selection: they move in the text and say where the cursor
// came to. Change the cursor and the text. Columns and lines count from 1; a word is a run of
// caracteres_identificateur and never leaves its line.
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

void chaineGAUCHE();                         // to the word on the left, which is said; without one two
                                             // beeps, and the cursor stays
void chainedroite();                         // the same to the right
void mnuEffaceMotItem();                     // takes out the word from the cursor on, with the blanks after it
void mnuChaineGaucheItem();                  // chaineGAUCHE as an item of the menu
void mnuChaineDroiteItem();
void mnuTabulationAvantItem();               // to the next tab stop, every ten columns; says the column
void mnuTabulationArriereItem();
void mnuXYItem();                            // says column and line
void mnuNumeroLigneItem();                   // asks for a line and goes there: one past the last is the last
                                             // one, a number beyond 16 bits is failure 6
                                             // unless the sheet has such lines
void mnuSelectionToutItem();                 // selects the whole text
