// From a number to its text in the forms of a sheet, and from hexadecimal digits to a number. Always "." as
// decimal mark, no grouping. Reads nombre_decimal of `modes`, changes nothing.
#pragma once

#include <string>
#include <string_view>

std::string FormatNombre(double x);        // nombre_decimal decimals, trailing zeros dropped
std::string FormatPuissance(double x);     // power of ten, digits cut and not rounded
// Hexadecimal digits of the integer part, a negative one in 32-bit two's complement; failure 6 outside 32 bits.
std::string texte_hexa(double x);
int ConvertitHexa(char c);                 // value of a hexadecimal digit, 0 for anything else
double valhexa(std::string_view chiffres); // value of hexadecimal digits; failure 6 beyond the floats
