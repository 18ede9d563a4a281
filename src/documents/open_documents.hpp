// The commands New, Open, Previous, Next and Close, for a control that shows the sheet. They change
// `documents`, the settings table, the working copies and the text. Document numbers run from 1 to
// nombre_document, fifteen at most; paths are Windows-1252. A failure that isn't told here goes up.
#pragma once

#include <string>

#include "documents/documents.hpp"

// Another sheet than before is open at that number: it gets an identity of its own, and the changes of the
// one before are forgotten.
void donne_identite(int rang);

// Sets nom_repertoire, at start-up: the folder of the first named row, or the root of the current folder, in
// capitals.
void InitNomRepertoire();
// True, with a box that tells it, when a sheet of exactly that path is open.
bool dejaOuvert(const std::string& nomfic);
// The next document becomes the current one, or the one before, around the ends. Nothing is shown yet.
void DocSuivant();
void DocPrecedent();
// Shows the document that has become current and says its name. False when its text can't be read: a box
// has told it, and the sheet before is still in `txt`.
bool TestRepertoire();
// Leaves the current sheet for that one. False as above.
bool montre_document(int rang);

// The commands. New and Open refuse a sixteenth document with a box.
void mnuNouveauItem();
void mnuOuvrirItem();
// Opens that file, or shows its sheet when it is open already; says why it can't.
void ouvre_ou_dit(const std::string& nom);
void mnuFichierPrecedentItem();
void mnuFichierSuivantItem();
void mnuFermerItem();
