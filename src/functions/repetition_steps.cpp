// Operations from symbols: which cell each value stands in, and when a cell is free again. Changes no state.
#include "functions/repetition_steps.hpp"

#include <algorithm>
#include <utility>

// A cell that nothing holds.
std::int16_t Assembleur::libre() {
    const auto place = std::find(emplois_.begin(), emplois_.end(), 0);
    const auto rang = place - emplois_.begin();
    if (place == emplois_.end()) emplois_.push_back(0);
    return static_cast<std::int16_t>(rang);
}

// Adds an operation, whose result stands in a free cell: never in one that it reads.
std::int16_t Assembleur::pose(Operation operation) {
    operation.resultat = libre();
    programme_.operations.push_back(operation);
    return operation.resultat;
}

void Assembleur::lache(std::int16_t valeur) {
    if (valeur != kAucuneCase) --emplois_[static_cast<std::size_t>(valeur)];
}

// A place holds another value than before.
void Assembleur::prends(std::int16_t& place, std::int16_t valeur) {
    if (valeur != kAucuneCase) ++emplois_[static_cast<std::size_t>(valeur)];
    lache(std::exchange(place, valeur));
}

void Assembleur::empile(std::int16_t valeur) { prends(pile_.emplace_back(kAucuneCase), valeur); }

// Takes the upper value off the stack. It still counts as held: who takes it lets it go.
std::int16_t Assembleur::depile() {
    const std::int16_t valeur = pile_.back();
    pile_.pop_back();
    return valeur;
}

void Assembleur::deux(Genre genre) {
    const std::int16_t droite = depile(), gauche = depile();
    empile(pose({.genre = genre, .resultat = 0, .gauche = gauche, .droite = droite}));
    lache(gauche);
    lache(droite);
}

void Assembleur::un(Genre genre, int rang, double valeur, double pi) {
    const std::int16_t gauche = depile();
    empile(pose({.genre = genre, .resultat = 0, .gauche = gauche, .rang = static_cast<std::int16_t>(rang),
                 .valeur = valeur, .pi = pi}));
    lache(gauche);
}

void Assembleur::commence_somme(bool opposee) {
    if (opposee) un(Genre::oppose);
    const std::int16_t valeur = depile();
    prends(somme_, valeur);
    lache(valeur);
}

void Assembleur::cumule(Genre genre) {
    const std::int16_t terme = depile();
    prends(somme_, pose({.genre = genre, .resultat = 0, .gauche = somme_, .droite = terme}));
    lache(terme);
}

void Assembleur::ferme() { std::swap(somme_, pile_.back()); }

void Assembleur::argument() {
    empile(somme_);
    prends(somme_, sauve_);
}

Programme Assembleur::finis() {
    programme_.cases = static_cast<std::int16_t>(emplois_.size());
    if (emplois_.size() <= kCasesMaxi) programme_.resultat = somme_;
    return std::move(programme_);
}
