// Tab and Maj+Tab in the window: from control to control in the order that they were made in, in every
// view. Changes the focus alone; a sheet never gets a tab.
#include "wx/frame.hpp"

#include <cstddef>

#include "shell/window.hpp"

namespace {

// True for a control that the user can go to now: of the options the chosen one.
bool peut_avoir_le_focus(const Controle& c, const wxWindow& w) {
    if (&c == &fenetre.LblMessage || &c == &fenetre.FrameAngle) return false;
    if (!w.IsShownOnScreen() || !w.IsEnabled()) return false;
    const auto* option = dynamic_cast<const wxRadioButton*>(&w);
    return option == nullptr || option->GetValue();
}

}  // namespace

void Cadre::change_de_controle(bool arriere) {
    const std::size_t nombre = paires_.size();
    const wxWindow* ici = FindFocus();
    std::size_t rang = 0;
    while (rang < nombre && paires_[rang].fenetre != ici) ++rang;
    if (rang == nombre) rang = arriere ? 0 : nombre - 1;
    for (std::size_t pas = 1; pas <= nombre; ++pas) {
        const Paire& p = paires_[(rang + (arriere ? nombre - pas : pas)) % nombre];
        if (!peut_avoir_le_focus(*p.donnees, *p.fenetre)) continue;
        p.fenetre->SetFocus();
        return;
    }
}
