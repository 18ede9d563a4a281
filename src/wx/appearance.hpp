// How the window's data look on a screen: twips as pixels, the sixteen colours, the fonts, and texts
// between the code page and the toolkit. Holds no state.
#pragma once

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/string.h>

#include <string_view>

#include "shell/window.hpp"

inline constexpr int kTwipsParPixel = 15;                  // 1,440 to the inch, 96 pixels to the inch

inline int pixels(int twips) { return twips / kTwipsParPixel; }

wxString vers_wx(std::string_view texte);                  // Windows-1252 to the toolkit, LF ends
wxColour couleur_wx(int indice);                           // of the palette; none for the design's
wxFont police_wx(const Police& police);

// The font that a control is shown in. Who needs large letters gets them in the message line, by the
// sheet's size, and in the list, by the system's, too; neither is smaller than its data say.
Police police_montree(const Controle& c);

// Letters of the wanted colour, or as near to it as can be read on the background of the windows.
struct Lettres {
    wxColour couleur, fond;
};
Lettres lettres_lisibles(const wxColour& voulue);
