// The window as data: its one instance and the way to its controls.
#include "shell/window.hpp"

Fenetre fenetre;

std::vector<Controle*> controles() {
    Fenetre& f = fenetre;
    return {&f.StatusBar, &f.FrameAngle, &f.OptionDegre,   &f.OptionRadian, &f.OptionGrade,
            &f.CmdAngle,  &f.CmdVoxtab,  &f.CmdModifTexte, &f.CmdQuitter,   &f.txt,
            &f.Liste,     &f.LblMessage};
}

Controle* controle(std::string_view nom) {
    for (Controle* c : controles())
        if (c->nom == nom) return c;
    return nullptr;
}

void donne_focus(const Controle& c) { fenetre.focus = c.nom; }
