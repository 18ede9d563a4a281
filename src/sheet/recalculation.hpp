// The pass as a procedure over text: reads every line once, calculates it and gives back the new text. Changes
// `feuille`, the context, the matrices and the data set; boxes and the errors that the reader says come while it
// runs, all else is for the caller to show.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// How a pass ended.
enum class Issue {
    vide,        // there was no text: no pass was begun
    refusee,     // more lines than can be numbered, or no memory for the text: nothing was done
    incomplete,  // a line could not be written: the caller's text stays as it is, the cursor has its place in it
    ecrite       // `texte` is the new text
};

// What a pass gives back.
struct Calcul {
    Issue issue = Issue::vide;
    std::string texte;           // the new text, Windows-1252 with CR LF; empty unless `ecrite`
    std::size_t debut = 0;       // where the line to say begins, in bytes from 0
    std::size_t curseur = 0;     // its end: bytes in front of the cursor
    bool erreur = false;         // a line has failed: those below it were only copied

    // The line to say; `montre` is the text that is shown now, the new one or the caller's.
    std::string_view message(std::string_view montre) const {
        return montre.substr(debut, curseur - debut);
    }
};

// Calculates the sheet `texte` (Windows-1252 with CR LF) in the current modes; `curseur` is the number of bytes
// in front of the cursor. The text may change while a box waits: the pass reads a copy.
Calcul calcule_feuille(const std::string& texte, std::size_t curseur) noexcept;

// Writes the results of the last pass anew, in the current number mode; they reach the text with the next pass.
void recrit_resultats() noexcept;

// Everything that a calculation reads and leaves, back at its initial state, but the settings. The port stays.
void reinitialise_calcul();
