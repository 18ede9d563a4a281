// Texts of a sheet as HTML. Holds no state.
#pragma once

#include <string>
#include <string_view>

// The text, in the code page, as UTF-8 that stands in an element or between double quotes of an attribute.
std::string html(std::string_view texte);

// A number of a sheet in MathML as French mathematics writes it: decimal comma, minus sign, power of ten. Whatever
// else stands there is text.
std::string mathml_nombre(std::string_view texte);
