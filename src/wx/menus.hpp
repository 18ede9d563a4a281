// The menu bar, made from the rows of the commands. The chosen items go to the core; captions, marks and the
// recent files follow the core's data.
#pragma once

#include <wx/menu.h>

#include <map>
#include <string>

#include "shell/commands.hpp"
#include "shell/menus.hpp"

class BarreMenus {
public:
    BarreMenus();

    wxMenuBar* barre() const { return barre_; }   // the frame owns it
    void montre();                                // follows the states of the items

private:
    void montre_item(wxMenu& menu, int id, const EtatItem& etat, const std::string& raccourci);
    void montre_recents();

    wxMenuBar* barre_;
    wxMenu* fichier_ = nullptr;                   // the menu that the recent files come first in
    std::map<int, EtatItem> montres_;             // what the bar shows, by identifier
};

// The item that an identifier stands for; `index` is set for a recent file.
std::string_view item_du_menu(int id, int& index);
