// The commands on what the check of the sheet finds: how much, from one to the next, and the word of warning behind
// a calculation. Change the cursor, `attention`, the option and what is said.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"

// Said where there is nothing to go to.
inline constexpr std::string_view kRienASignaler = "rien à signaler"_fr;
inline constexpr std::string_view kPasDeConstatPlusBas = "pas de constat plus bas"_fr;
inline constexpr std::string_view kPasDeConstatPlusHaut = "pas de constat plus haut"_fr;
inline constexpr std::string_view kPasVerifiee = "la feuille n'est pas vérifiée"_fr;

// What the calculations so far have warned of: nothing is told twice of one sheet.
struct Attention {
    // For each sheet of this run, by its identity: findings, by kind and piece, in the order of their bytes.
    std::map<std::uint64_t, std::vector<std::string>> connus;
};
extern Attention attention;

void mnuVerifierItem();            // says how many findings there are, goes to the first and says it
void mnuConstatSuivantItem();      // goes to the next finding behind the cursor and says it
void mnuConstatPrecedentItem();    // to the one in front of it
void mnuAttentionItem();           // a calculation warns, or it doesn't

void commence_attention();         // the pass that begins is watched, when the user wants warnings
// The pass is over: says "attention ligne 3" for what is new and probably wrong. `ecrite`: its text is shown.
void dit_attention(bool ecrite);
