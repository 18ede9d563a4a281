// What the files of the pass share: its state from line to line, and the ways to write to the rebuilt
// text. The blocks of results that lines write below themselves have a file of their own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "sheet/marks.hpp"
#include "sheet/old_blocks.hpp"
#include "state/sheet.hpp"


// What a step answers: the line is finished, or the next step looks at it.
enum class Suite { continuer, finie };

// The state that goes from line to line.
struct Passe {
    std::string_view source;             // the text before the pass
    std::size_t position = 1;            // where its next line begins, from 1
    std::int16_t numero = 0;             // number of the current line, from 1
    std::string_view ligne;              // the line, trimmed, then cut by effaceEgalite
    std::string_view ligne_avant;        // the line before the cut
    std::size_t retrait = 0;             // blanks in front of it
    Signes signes = 0;                   // of the line before the cut
    std::string majuscule;               // that line in capitals, where a mark is possible in it
    bool fin = false;                    // this is the last line of the sheet
    bool texte_complet = true;           // every line has been written to the rebuilt text

    std::int16_t ligne_curseur = 1;      // line of the source that the cursor is for
    std::size_t curseur_ecrit = 1;       // line of the new text where it will stand
    bool curseur_pris = false;           // a line that failed has taken it
    std::size_t debut_ligne = 0;         // where the last line of the rebuilt text begins

    bool attente_fonction = false;       // the line above was an INC or AIR heading
    bool entete_inc = false;             // it was an INC
    std::string entete;                  // that heading, without its old result
    std::string entete_entiere;          // as it goes back to the text when no function follows
    std::string commentaire_inc;         // its comment, with its "!"
    int listes_attendues = 0;            // lists of a bare STATXY still to come: 2, then 1
    std::int16_t ligne_statx = 0;        // line of that STATXY
    std::string premiere_liste;          // the first of the two lists
    std::size_t ligne_donnees = 1;       // line of the new text with the last heading of a data set

    // Whether the line before the cut holds the mark.
    bool contient(const Marque& marque) const {
        return marque.possible(signes) && majuscule.find(marque.mot) != std::string::npos;
    }
};

// Runs a statement that carries a line of the user on its way to the new text. Where it fails the old
// text is kept: see termine.
template <class Instruction>
inline void garde(Passe& p, Instruction&& instruction) {
    if (!Tente(kRecalcul, instruction)) p.texte_complet = false;
}

void ajoute(Passe& p, std::string_view texte);            // appends to the rebuilt text
void commence_ligne(Passe& p, std::int16_t numero, std::string_view texte);   // a line of the sheet begins
void ajoute_resultat(Passe& p, std::int16_t numero);      // the result of that line
void fin_de_ligne(Passe& p);                              // a line end
Suite ligne_suivante(Passe& p);                           // a line is done: its line end, unless it is the last
void prend_curseur(Passe& p);                             // the line that is being written has failed

Suite pose_bloc(Passe& p, GenreBloc genre);               // resultat_bloc below the line, for the old block there
Suite pose_bloc(Passe& p, std::string_view bloc, const AncienBloc& ancien);
Suite prend_liste(Passe& p);                              // a list of a bare STATXY
Suite retient_blocs(Passe& p);                            // the block that a calculated line has made
