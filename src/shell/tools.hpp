// The menu Outils: what it adds to the calculation. Its undo and redo are those of editing/undo.
#pragma once

void mnuSonItem();          // a sound at the end of a calculation, or none
void sonne_fin_de_calcul(); // plays that sound, when the user wants it
