// The block that defines a matrix in the sheet: a DEFM line, one line a row, a closing line. The
// sheet pass recognises the lines and calls these procedures. Changes `definition_de_matrice`,
// `matrices`, the defined flags of the matrices, and the result of the DEFM line in `feuille`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct DefinitionMatrice {
    bool definition_matrice = false;         // a block is open; the pass starts with false
    std::string lettre_definition_matrice;   // the letter after DEFM; "" when nothing stands there
    std::int16_t definition_lignes = 0;      // rows seen so far
    std::int16_t definition_colonnes = 0;    // columns, fixed by the first row
    std::string texte_definition_matrice;    // rows in capitals, each closed by a carriage return
    std::int16_t ligne_definition_matrice = 0;      // number of the DEFM line, from 1
    std::int32_t position_definition_matrice = 0;   // bytes of rebuilt text after the DEFM line
};
extern DefinitionMatrice definition_de_matrice;

// True when the line `numero_ligne` opens a block and needs nothing more. A refused letter and a
// block that was still open are reported, and the line is then calculated like any other.
bool TestMatrice(std::int16_t numero_ligne) noexcept;

// Takes the row in p_formule into the open block. Refuses a row with another number of columns than
// the first one: the text waits in l_texte_erreur and the block is abandoned.
void RangeDefinitionMatrice() noexcept;

// Closes the block: fills the matrix and writes its dimensions after the DEFM line. An element
// that can't be evaluated ends it there, with the letter not marked as defined.
void FinDefinitionMatrice() noexcept;

// Evaluates one element and stores it in the matrix under definition, rows and columns from 1.
void RangeChiffreMatrice(std::string_view element, int ligne, int colonne) noexcept;
