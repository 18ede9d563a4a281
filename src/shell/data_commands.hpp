// The commands that bring data into the sheet and out of it. They change the text of the port, and files.
#pragma once

#include <string_view>

#include "base/codepage.hpp"

// Captions of their items, and of the dialogs in which the files are chosen.
inline constexpr std::string_view kLibelleExporterPage = "Exporter la &page"_fr;
inline constexpr std::string_view kLibelleExporterDonnees = "Exporter les &données"_fr;
inline constexpr std::string_view kLibelleImporter = "&Importer des données"_fr;

void mnuExporterPageItem();      // the sheet as a page of HTML, for who has no Voxtab
void mnuExporterDonneesItem();   // a table, a data set or a matrix of the sheet as CSV
void mnuImporterItem();          // data of the clipboard or of a file become lines of the sheet
