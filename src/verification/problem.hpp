// The first thing in a formula that was not read as it looks, told from the engine's own record of the reading,
// and the formula that was probably meant. Change nothing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "state/reading.hpp"
#include "verification/findings.hpp"

// A formula that was read: what was typed, what the engine read of it, and where each character comes from.
struct Lue {
    std::string_view tapee;             // from its first character that is no blank
    std::string_view formule;           // as the engine had it, without the end mark
    const Releve& releve;
    bool erreur;
    std::vector<std::size_t> places;    // of `formule` in `tapee`, from 0, and the end

    // Where the character behind the first `lus` ones of the formula comes from: the end mark has the end's place.
    std::size_t place(std::int32_t lus) const {
        return places[std::min(static_cast<std::size_t>(std::max(lus, 0)), places.size() - 1)];
    }
};

// What is wrong, and the change that mends it: at `edition` so many characters of what was typed give way to
// `correction`; nothing is known where `corrigible` is false.
struct Probleme {
    GenreConstat genre;
    std::size_t place = 0;              // in what was typed, from 0
    std::size_t edition = std::string::npos;   // npos: at that place
    std::size_t longueur = 0;
    std::string correction{};
    bool corrigible = false;
};

// The first problem of the reading; nothing when every character was read as what it looks like. A formula in
// error has one only where it is known what was meant.
std::optional<Probleme> premier_probleme(const Lue& lue);

// The first node of the side of a formula that is calculated: behind its "=".
std::size_t debut_calcul(const std::vector<Noeud>& noeuds);

// What was understood of the formula: what was typed without the parts that were not read.
std::string partie_lue(const Lue& lue);

// The formula mended, one problem after the other, as far as it evaluates without another one; "" when it
// doesn't. `premier` is its first problem.
std::string formule_proposee(std::string_view tapee, const Probleme& premier);
