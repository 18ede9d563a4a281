// The commands that bring data into the sheet and out of it. They change the text of the port, and files.
#pragma once

void mnuExporterPageItem();      // the sheet as a page of HTML, for who has no Voxtab
void mnuExporterDonneesItem();   // a table, a data set or a matrix of the sheet as CSV
void mnuImporterItem();          // data of the clipboard or of a file become lines of the sheet
