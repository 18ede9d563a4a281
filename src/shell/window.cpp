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

namespace {

// The frame of a control; one that lies in the window stands for itself.
const Controle& cadre_de(const Controle& c) {
    const Controle* cadre = c.cadre.empty() ? nullptr : controle(c.cadre);
    return cadre == nullptr ? c : *cadre;
}

}  // namespace

bool montre(const Controle& c) { return c.visible && cadre_de(c).visible; }
bool utilisable(const Controle& c) { return c.actif && cadre_de(c).actif; }

bool vue_ouverte(Vue vue) {
    switch (vue) {
        case Vue::angle: return fenetre.FrameAngle.visible;
        case Vue::choix_couleur: return fenetre.Liste.visible;
    }
    return false;
}

void donne_focus(const Controle& c) { fenetre.focus = c.nom; }
