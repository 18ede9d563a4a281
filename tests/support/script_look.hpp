// What a script looks at: the window, the menus, the files, the settings and the documents.
#pragma once

#include "shell/window.hpp"
#include "support/script_words.hpp"

// Compares what the step names with what stands there.
void voit(Etape& etape);

// Whether a control can be seen, and whether it would react: its frame counts too.
bool est_montre(const Controle& c);
bool est_actif(const Controle& c);

// The control of that name. Refuses a name that no control has.
const Controle& controle_nomme(const std::string& nom);
