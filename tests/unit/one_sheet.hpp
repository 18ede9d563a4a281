// A program with one sheet open, in the middle of its text, and nothing heard yet; with or without
// key help. Changes every subsystem.
#pragma once

#include <string>

#include "shell/events.hpp"
#include "shell/help_mode.hpp"
#include "support/program.hpp"
#include "support/snapshot.hpp"

inline const std::string kUneFeuille = "A=3\r\nB=A*2+A\r\nC=7\r\n";

// The cursor is after "B=A*", in a line that can be calculated and searched.
inline void demarre_avec_feuille() {
    programme_neuf();
    pose_fichier("C:\\A.VXT", kUneFeuille);
    pose_fichier("C:\\VOXTAB\\aide.txt", "guide\r\nsuite\r\n");
    pose_fichier("C:\\VOXTAB\\fonction.txt", "COS (x)\r\nSIN (x)\r\n");
    memoire.ligne_commande = "C:\\A.VXT";
    evenement_chargement();
    port.texte.pose_selection(9, 0);
    oublie_entendu();
}

// The same in key help; `traitee` tells whether a command has just spoken.
inline void demarre_en_aide(bool traitee) {
    demarre_avec_feuille();
    evenement_menu("mnuAideToucheItem");
    oublie_entendu();
    aide.aide_touche_traitee = traitee;
}
