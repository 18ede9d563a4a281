// How the program comes up. Changes every subsystem.
#pragma once

#include <string>
#include <string_view>

void demarre() noexcept;         // the load of the window, all steps in their order
std::string feuille_commandee(std::string_view commande);   // path of the sheet that a command line names
