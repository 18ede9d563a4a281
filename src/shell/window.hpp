// The window as data: its controls, their state, the view, the menus. One instance, `fenetre`. The
// commands change the data; a front end shows it, and a script can look at every part of it.
// Sizes are in twips (1,440 to the inch), colours are indices 0 to 15 of the palette.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"

struct Police {
    std::string nom;                 // Windows-1252
    double taille = 0;               // points
    bool gras = false;
};

struct Controle {
    std::string_view nom;            // the name that scripts and front ends use
    int gauche = 0, haut = 0, largeur = 0, hauteur = 0;   // place in the window or in its frame
    int ordre_tab = 0;               // place in the tab order, from 0
    std::string texte;               // caption, Windows-1252, "&" in front of the access key
    bool visible = true;
    bool actif = true;               // enabled
    Police police{};
    std::string_view cadre{};        // the frame that it lies in, "" for the window itself
};

constexpr int kCouleurDessin = -1;   // the colour of the window's design

// What is shown in the place of the text. The menus stay: a view may open over another one.
enum class Vue { angle, choix_couleur };

struct Fenetre {
    std::string titre = "VOXTAB";
    int gauche = 0, haut = 0, largeur = 6075, hauteur = 4485;
    bool sablier = false;            // the pointer is the hourglass
    bool fermee = false;             // the window has closed: the program is over

    Controle StatusBar{"StatusBar", 0, 4230, 6075, 255, 2, "", true, true, {}};
    Controle FrameAngle{"FrameAngle", 120, 480, 4455, 2535, 3,
                        std::string("Unité d'angle"_fr), false, false, {}};
    Controle OptionDegre{"OptionDegre", 120, 360, 1815, 255, 4,
                         std::string("degré"_fr), true, true, {}, "FrameAngle"};
    Controle OptionRadian{"OptionRadian", 120, 720, 1815, 255, 5, "Radian", true, true, {},
                          "FrameAngle"};
    Controle OptionGrade{"OptionGrade", 120, 1080, 1815, 255, 6, "grade", true, true, {},
                         "FrameAngle"};
    Controle CmdAngle{"CmdAngle", 1440, 1560, 1215, 615, 7,
                      std::string("Retour à la feuille"_fr), true, true, {}, "FrameAngle"};
    Controle CmdVoxtab{"CmdVoxtab", 2040, 120, 975, 375, 8, "Calculatrice", true, true, {}};
    Controle CmdModifTexte{"CmdModifTexte", 3980, 120, 1215, 375, 9, "&Modif. texte", true, true, {}};
    Controle CmdQuitter{"CmdQuitter", 6360, 120, 975, 375, 10, "&Quitter", true, true, {}};
    Controle txt{"txt", 0, 600, 5775, 3255, 1, "", true, true, {"Courier", 15, false}};
    Controle Liste{"Liste", 0, 600, 9255, 3180, 11, "", false, false, {"Courier", 9.75, false}};
    Controle LblMessage{"LblMessage", 0, 3795, 6255, 255, 0, "", true, true,
                        {"MS Sans Serif", 8.25, true}};

    bool txt_lecture_seule = false;
    bool courbe_ecoutee = false;              // the text shown tells the points of a curve
    bool liste_fonctions = false;             // the text shown is the list of functions
    int txt_couleur = kCouleurDessin;         // characters
    int txt_fond = kCouleurDessin;            // background
    int LblMessage_couleur = 12;              // light red
    int option_angle = 1;                     // the option button that is on: 1 degré, 2 radian, 3 grade
    std::vector<std::string> lignes_liste;    // of Liste
    int index_liste = -1;                     // selected line of Liste, from 0; -1 for none
    std::string_view focus = "txt";           // control that has the focus
    std::array<std::string, 4> panneaux;      // of StatusBar, 1 to 4 at 0 to 3; 3 and 4 are the system's
};
extern Fenetre fenetre;

// The control of that name, or nullptr.
Controle* controle(std::string_view nom);
// All controls in the order of their definition.
std::vector<Controle*> controles();

// True when the control and its frame are shown; when they are enabled.
bool montre(const Controle& c);
bool utilisable(const Controle& c);

// True while that view is open.
bool vue_ouverte(Vue vue);

// Gives the focus to a control.
void donne_focus(const Controle& c);
