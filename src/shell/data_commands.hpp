// The commands that bring data into the sheet and out of it. They change the text of the port, and files.
#pragma once

void mnuImporterItem();      // data of the clipboard or of a file become lines of the sheet
