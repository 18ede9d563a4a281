// How each built-in function is said: one row each, in the order of the table of functions. The compiler
// refuses a function without its words. Constant data.
#pragma once

#include <array>
#include <string_view>

#include "functions/table.hpp"

// A call of one value is "sinus de", the value, "fin sinus"; one of several has its own words between them.
struct MotsFonction {
    Fonction numero = kAucuneFonction;
    std::string_view debut{};                    // in front of the first value, or the whole name
    std::string_view fin{};                      // behind the last value; "" when the name stands alone
    std::array<std::string_view, 2> entre{};     // in front of the second value, of the third
};

// The words of function `rang`, 1 to kNombreFonctions.
const MotsFonction& mots_fonction(int rang);
