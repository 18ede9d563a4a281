// The one loop over a whole text that the compiler turns into vector instructions (src/CMakeLists.txt). Changes no
// state.
#include "base/count.hpp"

#include <algorithm>

std::size_t compte_octets(std::string_view texte, char c) {
    constexpr std::size_t kPiece = 240;   // a piece's count fits one byte, as do those of its vectors
    std::size_t total = 0;
    for (; !texte.empty(); texte.remove_prefix(std::min(kPiece, texte.size()))) {
        unsigned char compte = 0;
        for (const char ici : texte.substr(0, kPiece)) compte = static_cast<unsigned char>(compte + (ici == c ? 1 : 0));
        total += compte;
    }
    return total;
}
