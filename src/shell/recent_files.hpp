// Sheets that are opened without a dialog: the recent files of the File menu, and what another start of the
// program hands over. Change the documents.
#pragma once

#include <string>

void mnuOuvrirSousMenuItem(int Index);
void recoit_feuille(const std::string& nom);
