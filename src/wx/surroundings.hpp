// What a desktop gives a program before it has a window: its language, its arguments, the user's
// folder. One file per system implements this header. Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The words of the system's own dialogs follow the user's language; numbers never do.
void choisit_langue();

// A sentence for the user while there is no window: in the terminal, where there is one.
void dit_sans_fenetre(std::string_view utf8);

// What follows the program's name, with the sheet by its whole path. `arguments` is the same cut
// into its words, without the options.
std::string ligne_de_commande(const std::vector<std::string>& arguments);

// Folder of the user's own data of this program, which may not be there yet.
std::string dossier_de_l_utilisateur();
