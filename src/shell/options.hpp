// The Options menu: number modes, decimals, layouts, last sheet, and the fonts. Change the modes, the
// settings table, the captions of the items, and through the pass the sheet.
#pragma once

void mnuEntierItem();            // number modes: the sheet is calculated again
void mnuFlottantItem();
void mnuPuissanceItem();
void mnuHexaItem();
void mnuNombreDecimalItem();     // asks for the decimals shown
void mnuDerniereFeuilleItem();   // last sheet at start-up, yes or no
void mnuColonneMatrice();        // matrices in line or in column, from the next calculation on
void mnuLigneStat();             // statistics complete or restricted, from the next calculation on
void mnuPoliceEcran();           // fonts of the screen and of the printer
void mnuPoliceImprimante();
