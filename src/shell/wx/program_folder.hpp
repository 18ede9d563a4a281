// The folder of the program's own files: settings, working copies, guide, list of functions.
#pragma once

#include <string>

// The folder, in UTF-8: the program's own when it can be written, otherwise the user's data folder.
// Made and filled with the guide and the list of functions when they aren't there yet.
std::string prepare_dossier_programme();
