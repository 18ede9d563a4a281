// "Vérifier la feuille": what of a sheet was read otherwise than it looks. The pass itself reads the sheet, and
// the record of its reading is judged line by line. One instance, `verification`: what the last check has found, or
// what a watched pass has found that is grave.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "verification/findings.hpp"

struct Verification {
    std::vector<Constat> constats;       // in the order of the sheet
    int lignes_en_erreur = 0;
    bool arretee = false;                // a box or the user ended the pass: the lines below were not looked at
};
extern Verification verification;

// Checks a sheet (Windows-1252 with CR LF) in the current modes, in silence. Lines below one in error are
// calculated all the same, so that all places are found at once. Nothing but `verification` is changed: the
// tables of the last pass, variables, matrices, data set and random numbers are put back.
void verifie_feuille(const std::string& texte) noexcept;

// Watches the next pass and judges its lines as they are calculated; `finit_surveillance` must follow it. What is
// right and surprising isn't looked for: most formulas then need no record.
void commence_surveillance() noexcept;
void finit_surveillance() noexcept;

// Findings that are grave.
std::size_t faux_probables(const std::vector<Constat>& constats);
