// Helpers of the unit tests: the number of a failure, and what the boxes said, as UTF-8.
#pragma once

#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "support/memory.hpp"

// Number of the failure that `instruction` raises, 0 when it raises none.
template <class Instruction>
int numero_defaillance(Instruction&& instruction) {
    try {
        instruction();
    } catch (const Defaillance& d) {
        return d.numero;
    }
    return 0;
}

inline std::vector<std::string> en_utf8(const std::vector<std::string>& textes) {
    std::vector<std::string> sortie;
    for (const std::string& texte : textes) sortie.push_back(vers_utf8(texte));
    return sortie;
}

// What the user has seen and heard so far.
inline std::vector<std::string> boites() { return en_utf8(memoire.boites); }
inline std::vector<std::string> messages() { return en_utf8(memoire.messages); }

using Textes = std::vector<std::string>;
