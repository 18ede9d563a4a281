// How the reader of a formula understands a text: the record of what was read (state/reading.hpp), and where a
// character of the formula stands in what the user wrote. Leaves the context as it was.
//
// To know how a text is read:   const FormuleRelevee lue = lit_formule("1,5+2");
// lue.valeur is 1; lue.releve.arret is 2, the first character of lue.formule that was not read;
// lue.releve.noeuds holds one node, the number 1. The tree of a formula is its list of nodes: each node is
// preceded by its `arite` children, each with its own in front of it, so a stack of results is enough to
// walk through it. An operand's text is lue.formule.substr(debut - 1, fin - debut + 1).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "state/reading.hpp"

// How the reader of a formula has understood a text.
struct FormuleRelevee {
    std::string formule;      // the text as it was read: capitals, "*" put in; without the end mark
    Releve releve;
    double valeur = 0;        // means nothing when `erreur`
    bool erreur = false;      // reported or failed; releve.mots_faute has the words of the first report
};

// The preparation of a text: that of an ordinary line puts "*" between a number and a letter, that of a
// STATX or STATXY line does not.
enum class Preparation : std::uint8_t { ordinaire, sans_produits };

// Evaluates `texte` (a line without comment and old result, Windows-1252) in silence with the variables and
// matrices as they are now, and tells how it was read. Nothing of the context stays changed, the random
// generator neither; of `matrices` only when the formula works with matrices is a copy taken.
FormuleRelevee lit_formule(std::string_view texte, Preparation preparation = Preparation::ordinaire);

// For each character of `formule` (p_formule as it was read) the place in `texte` (what the user wrote, from
// its first character that is no blank) that it comes from, from 0: "²" gave two characters, and an inserted
// "*" belongs to the letter behind it. One place more than characters: the end.
std::vector<std::size_t> places_dans_le_texte(std::string_view texte, std::string_view formule);

// The text of a number, variable or matrix node: only what took part in the value.
std::string_view texte_utile(std::string_view formule, const Noeud& noeud);
