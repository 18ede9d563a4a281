// What the files of the pass share: its state from line to line, and the ways to write to the rebuilt
// text. The blocks of results that wait until the old ones below are dropped have a file of their own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "sheet/marks.hpp"

inline constexpr Procedure kRecalcul{" sur recalcul"_fr, false};
inline constexpr std::string_view kFinDeLigne = "\r\n";

// What a step answers: the line is finished, or the next step looks at it.
enum class Suite { continuer, finie };

// The state that goes from line to line.
struct Passe {
    std::int16_t numero = 0;             // number of the current line, from 1
    std::string ligne;                   // the line, trimmed, then cut by effaceEgalite
    std::string majuscule;               // the line in capitals, before the cut
    std::string ligne_avant;             // the line before the cut
    Lettres lettres = 0;                 // letters of majuscule
    bool fin = false;                    // this is the last line of the sheet
    std::int16_t ligne_curseur = 1;      // line where the cursor will stand
    bool texte_complet = true;           // every line has been written to the rebuilt text

    bool attente_fonction = false;       // the line above was an INC or AIR heading
    std::string entete;                  // that heading, without its old result
    std::string commentaire_inc;         // its comment, with its "!"
    bool bloc_inc = false;               // the table of an INC waits in resultat_bloc
    bool bloc_stat = false;              // a statistics result waits there
    bool paire_statxy = false;           // the two lists of a bare STATXY are still to come
    std::int16_t ligne_statx = 0;        // line of that STATXY
    std::string premiere_liste;          // the first of the two lists
    bool bloc_tri = false;               // a sorted data set waits in resultat_bloc
    bool bloc_matrice = false;           // a matrix in column form waits there
    bool saut_ancien = false;            // the lines now read are an old block, to be dropped

    bool majuscule_contient(const Marque& marque) const {
        return (lettres & marque.lettres) == marque.lettres &&
               majuscule.find(marque.mot) != std::string::npos;
    }
};

// Runs a statement that carries a line of the user on its way to the new text. Where it fails the old
// text is kept: see termine.
template <class Instruction>
inline void garde(Passe& p, Instruction&& instruction) {
    if (!Tente(kRecalcul, instruction)) p.texte_complet = false;
}

void ajoute(Passe& p, std::string_view texte);            // appends to the rebuilt text
void ajoute_resultat(Passe& p, std::int16_t numero);      // the result of that line
Suite ligne_suivante(Passe& p);                           // a line is done: its line end, unless it is the last
Suite bloc_en_attente(Passe& p);                          // a waiting block is written where the sheet ends

Suite blocs_en_attente(Passe& p);                         // the lines below a block that waits, or an old one
Suite retient_blocs(Passe& p);                            // the blocks that a calculated line has made wait
