// The start of a record of what was read, and its faults. Change the record that they are given.
#include "state/reading.hpp"

void vide_releve(Releve& releve) noexcept {
    releve.noeuds.clear();
    releve.racines.clear();
    releve.mots_faute.clear();
    releve.traits = releve.lettres = releve.lettres_neuves = 0;
    releve.perdue = releve.symbole_debut = releve.symbole_fin = releve.lu = releve.arret = 0;
    releve.faute = releve.faute_fin = 0;
    releve.affectee = 0;
    releve.symbole_refuse = false;
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
