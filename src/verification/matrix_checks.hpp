// What a formula of matrices gives that it doesn't look like: it is calculated in two work matrices, and what it names
// is followed through them. Changes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "verification/findings.hpp"
#include "verification/problem.hpp"

struct ConstatMatrice {
    GenreConstat genre;
    std::int32_t place = 1;    // in the formula, from 1
    std::string propose{};
};

// The first node whose value isn't that of its operands, or a matrix that no matrix takes. Of a formula that was refused
// only what can be told of its nodes.
std::optional<ConstatMatrice> constat_de_matrice(const Lue& lue);
