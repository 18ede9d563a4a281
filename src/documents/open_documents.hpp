// The commands New, Open, Previous, Next and Close, for a control that shows the sheet. They change
// `documents`, the settings table, the working copies and the text.
#pragma once

#include <string>

#include "documents/documents.hpp"

void donne_identite(int rang);           // another sheet than before is open there: the changes of the
                                         // one before are forgotten

void InitNomRepertoire();                // nom_repertoire, at start-up
bool dejaOuvert(const std::string& nomfic);
void DocSuivant();
void DocPrecedent();
bool TestRepertoire();                   // shows the document that has become current; false: told, the
                                         // sheet before it is still in `txt`
bool montre_document(int rang);          // leaves the current sheet for that one; false as above

void mnuNouveauItem();
void mnuOuvrirItem();
void ouvre_ou_dit(const std::string& nom);     // opens that file, or shows its sheet; says why it can't
void mnuFichierPrecedentItem();
void mnuFichierSuivantItem();
void mnuFermerItem();
