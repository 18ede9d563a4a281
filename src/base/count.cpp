// The one loop over a whole text that the compiler turns into vector instructions (src/CMakeLists.txt). Changes no
// state.
#include "base/count.hpp"

#include <algorithm>

std::size_t compte_octets(std::string_view texte, char c) {
    return static_cast<std::size_t>(std::count(texte.begin(), texte.end(), c));
}
