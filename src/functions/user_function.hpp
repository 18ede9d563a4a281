// The user function: its definition by a DEFFON line and its call. Changes nom_fonction,
// fonction_active and the variable of the function in `moteur`.
#pragma once

// Takes the function's text from p_formule, a line that holds "DEFFON".
void DefFon() noexcept;

// Value of the user function at `valeur`. The variable keeps that value afterwards. Kept: see the oddities,
// variable-stays-bound.
void fon(double valeur, double& resultat) noexcept;
