// The start of a record of what was read, and its faults. Change the record that they are given.
#include "state/reading.hpp"

#include <utility>

void vide_releve(Releve& releve) noexcept {
    Releve neuf;
    std::swap(neuf.noeuds, releve.noeuds);
    std::swap(neuf.racines, releve.racines);
    std::swap(neuf.mots_faute, releve.mots_faute);
    neuf.noeuds.clear();
    neuf.racines.clear();
    neuf.mots_faute.clear();
    std::swap(releve, neuf);
}

void note_faute(Releve& releve, std::string_view mots) noexcept {
    releve.symbole_refuse = true;
    if (releve.faute != 0) return;
    releve.faute = releve.symbole_debut;
    releve.faute_fin = releve.symbole_fin;
    try {
        releve.mots_faute = mots;
    } catch (...) {   // without memory the place stays known
        releve.mots_faute.clear();
    }
}
