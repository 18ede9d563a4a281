// The tables of the sheet under calculation. One instance, `feuille`; the pass rebuilds it, the
// engine and the blocks write results into it, and it stays readable until the next pass.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/table.hpp"
#include "state/line_texts.hpp"
#include "state/pass_result.hpp"

// The failed line of the last pass: the first fault, and its piece in the text that the pass wrote.
struct FauteDePasse {
    std::size_t ligne = 0;               // line of that text, from 1; 0: no line has failed
    std::size_t colonne = 1;             // first character of the piece, from 1
    std::size_t longueur = 0;            // 0: the engine stood behind the formula
    std::string mots;                    // what was reported first, Windows-1252; "" when nothing was
};

struct Feuille {
    std::int16_t nombre_ligne = 0;       // lines of the sheet: carriage returns plus one
    Table<double> valeur_ligne;          // result of each line, 1 to nombre_ligne; 0 for none
    TextesDeLignes formule_ligne;        // what is evaluated: no old result, no comment; holds the sheet as it was read
    TextesDeLignes resultat_ligne;       // what is written after the line; begins with " =" or "=="
    std::string resultat_bloc;           // lines to write below the current line
    std::int16_t ligne_courante = 0;     // line in calculation, set on entry to calcul_chaine
    bool statx_present = false;          // a STATX result exists in this pass
    bool statxy_present = false;         // a STATXY result exists in this pass
    bool passe_refusee = false;          // the last pass could not number the lines: nothing was done
    std::uint32_t passes = 0;            // begun since the start; only a change of it counts
    bool calcul_en_colonne = false;      // true only while the column calculation runs the pass
    // The new text of the sheet, as it grows during a pass. It answers for `txt`: its size is the
    // length of the text rebuilt so far, and a closing definition inserts at a noted position.
    std::string texte_reconstruit;
    // What the last pass wrote, for who asks later what stands after a line: the text, and for each of its
    // lines, from 0, the column in front of the result. 0: no result; a number below 0: the result of that
    // line of the tables, which stands in the block below.
    std::string texte_ecrit;
    std::vector<std::int32_t> colonne_resultat;
    FauteDePasse faute;
};
extern Feuille feuille;

// Inserts the result of a line into the rebuilt text at `position`, the end of that line (bytes from 0; at most
// the text's length).
void insere_texte_reconstruit(std::size_t position, std::string_view texte);

// Lines that `texte` ends: pairs of carriage return and line feed.
std::size_t lignes_closes(std::string_view texte);
