// From a value to the text that the sheet shows, in the number mode of the moment. Always "." as
// decimal mark, no grouping. Changes resultat_ligne and resultat_bloc of `feuille`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

void affiche_valeur(std::int16_t numero) noexcept;          // the line's result, matrices included
void Affiche_valeur_nombre(std::int16_t numero) noexcept;   // the line's number
void AffichePi(std::int16_t numero, bool& trouve) noexcept; // a listed multiple of Pi
std::string FormatNombre(double x);        // nombre_decimal decimals, trailing zeros dropped
std::string FormatPuissance(double x);     // power of ten, digits cut and not rounded
int ConvertitHexa(char c);                 // value of a hexadecimal digit, 0 for anything else
double valhexa(std::string_view chiffres); // value of hexadecimal digits; failure 6 beyond the floats
