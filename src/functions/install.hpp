// Gives the grammar its functions and its matrix arithmetic. Changes `operations`.
#pragma once

// To be called once, before the first formula; again, it changes nothing.
void installe_fonctions();
