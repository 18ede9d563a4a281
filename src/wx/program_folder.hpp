// The folder of the program's own files: settings, working copies, guide, list of functions.
#pragma once

#include <string>

// The folder, in UTF-8: the program's own when it can be written, otherwise the user's data folder.
// Made and filled with the guide and the list of functions when they aren't there yet or have a newer
// version; a text that gives way stays beside with the extension "bak".
std::string prepare_dossier_programme();
