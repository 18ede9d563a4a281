// The commands that make a function known without eyes: its study as lines, its curve as sound. Change the view and
// what is said.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.hpp"

// The entry box for a function that has no interval of its own.
inline constexpr std::string_view kInviteIntervalle = "Intervalle : début, fin"_fr;

// The interval that was typed last is proposed again. One instance, `intervalle_donne`.
struct IntervalleDonne {
    std::string bornes = "-10,10";
};
extern IntervalleDonne intervalle_donne;

void mnuEtudierItem();       // shows the study of the cursor's function, one fact a line
void mnuEcouterItem();       // plays its curve and shows its points
