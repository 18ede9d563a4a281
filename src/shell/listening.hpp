// Listening to a curve: what plays, the keys of its view, a point at a time under the arrows. One instance, `ecoute`.
// Changes what is played and said.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "shell/key_codes.hpp"
#include "study/curve.hpp"

struct Ecoute {
    CourbeDeFeuille une;             // the curve that is listened to
    CourbeDeFeuille autre;           // the sheet's next function; no points when there is none
    double duree = 3;                // seconds of a curve, kept from one to the next
    bool joue = false;               // a sound is on its way
    std::size_t ligne = 0;           // line of the view whose point was heard last, from 0
};
extern Ecoute ecoute;

inline constexpr std::string_view kPasDeSon = "pas de son ici"_fr;
inline constexpr std::string_view kFinDeCourbe = "fin de la courbe"_fr;
inline constexpr std::string_view kSansAutreCourbe = "pas d'autre fonction INC ou AIR dans la feuille"_fr;
inline constexpr std::string_view kPlusRapide = "c'est le plus rapide"_fr;
inline constexpr std::string_view kPlusLent = "c'est le plus lent"_fr;

// The lines of the view: what is heard, then each point, then the keys.
std::string texte_d_ecoute();

// Plays the curve; after a silence when words are said first.
void joue_la_courbe(bool apres_les_mots);

void arrete_courbe();                                       // any key: what plays stops at once
void courbe_finie(bool jouee);                              // it has come to its end, or there is no device
bool est_touche_d_ecoute(const FrappeTouche& frappe);       // a key of the view, while it is shown
void touche_d_ecoute(const FrappeTouche& frappe);           // what it does
void suit_curseur();                                        // the cursor may stand on another point: it is heard
