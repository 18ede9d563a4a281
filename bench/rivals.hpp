// The programs that stand beside this one: muParser in this process, bc and the two Luas as processes of their
// own.
#pragma once

#include <string>
#include <vector>

// Parses and evaluates each formula once over the variables A to Z and answers the processor
// seconds. The values go to `valeurs`, one a formula.
double temps_muparser(const std::vector<std::string>& formules, std::vector<double>& valeurs);

// How a sum of trapezoids treats the point that two of them share.
enum class Bouts {
    deux_fois,  // each trapezoid evaluates both its ends
    une_fois    // the right end's value serves as the next left end's
};

// The trapezoids of AIR over a formula of X in muParser's bytecode, from `debut` to `debut` + 1. Answers the
// processor seconds; the area goes to `aire`.
double temps_aire_muparser(const std::string& formule, double debut, int nombre, Bouts bouts, double& aire);

// "lua5.4" or "luajit": true when it can be started.
bool lua_present(const std::string& nom);

// Each formula, in muParser's words, loaded and run once by a Lua, and its value written with two decimals. Answers the
// processor seconds as Lua tells them, without its start; the values go to `valeurs`.
double temps_lua(const std::string& nom, const std::vector<std::string>& formules, std::vector<double>& valeurs);

// The same trapezoids as a loop of a Lua that evaluates both ends of each.
double temps_aire_lua(const std::string& nom, const std::string& formule, double debut, int nombre, double& aire);

// True when `bc` can be started.
bool bc_present();

// Runs `bc -l` on a text as its standard input, its output dropped, and answers its processor
// seconds, starting up included. Refuses, with an exception, a bc that fails or complains.
double temps_bc(const std::string& entree);

// What `bc -l` prints for a text.
std::string sortie_bc(const std::string& entree);
