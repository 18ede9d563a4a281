// A second start on the same folder gives its sheet to the program that runs there, which comes to the
// front. One file per system implements this header. Texts are UTF-8.
#pragma once

#include <functional>
#include <string>

// Notes what the desktop says of this start; before the display is opened, which forgets it.
void note_lancement();

// Gives the sheet ("" for none) to the running program of that name. False when it didn't take it.
bool confie_feuille(const std::string& nom, const std::string& feuille);

// From now on this program takes what others give: `recoit` is called with the sheet, whatever the
// program is doing at that moment.
void attend_feuilles(const std::string& nom, std::function<void(const std::string&)> recoit);
void n_attend_plus();

// The window of the program, or the box over it, comes to the front.
void vient_devant();
