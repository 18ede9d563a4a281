// Runs a sheet and checks what holds for every pass: where the cursor stands, what was said last,
// which lines are kept, which values came.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "property/sheets.hpp"

// What the user has after a pass, and the values after it.
struct Vue {
    std::string texte;
    std::size_t sel_start = 0, sel_length = 0;
    std::vector<std::string> messages, boites;  // of this pass alone
    bool erreur = false;
    std::array<bool, 27> definie{};
    std::array<double, 27> valeur{};
};

// A fresh program with the modes of the sheet. The port is installed once, in main.
void prepare(const Reglage& reglage);

// One command on the current text, in the current program.
Vue passe(const char* commande = "recalcul");
// The sheet in the current program, calculated.
Vue calcule(const std::string& texte, std::size_t curseur = 0);

// A digest of all that was seen, of every pass so far.
std::uint64_t empreinte();

// What is wrong with a pass, in words; empty when nothing is.
using Defaut = std::string;
Defaut verifie_curseur(const Vue& vue);
Defaut verifie_ligne_du_curseur(const FeuilleTiree& feuille, const Vue& vue);
Defaut verifie_message(const std::string& texte_avant, const Vue& vue,
                       const std::string& dernier_avant);
Defaut verifie_lignes(const FeuilleTiree& feuille, const Vue& vue);
Defaut verifie_valeurs(const FeuilleTiree& feuille, const Vue& vue);
Defaut verifie_boites(const FeuilleTiree& feuille, const Vue& vue);
bool memes_valeurs(const Vue& a, const Vue& b);

// The whole sheet of a seed: calculated, calculated again, once more by a fresh program, and by a
// program that has calculated another sheet before.
Defaut verifie_feuille(const FeuilleTiree& feuille, const FeuilleTiree& autre);
