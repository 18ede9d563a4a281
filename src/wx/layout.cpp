// Where the controls stand. The data's twips give the places; a control that needs more room for its
// words, as with large text, takes it and the next ones make way, so that nothing is cut off. The
// contents keep their size when the window grows and fit in when it is smaller.
#include <algorithm>
#include <array>
#include <string_view>

#include "wx/appearance.hpp"
#include "wx/frame.hpp"

namespace {

constexpr int kEcart = 8;       // pixels between two controls
constexpr int kMinimum = 100;   // pixels; a window smaller than that shows nothing useful

constexpr std::array<std::string_view, 3> kBoutons = {"CmdVoxtab", "CmdModifTexte", "CmdQuitter"};

// Size of a control: that of its data, or what its words need.
wxSize taille(const Controle& c, const wxWindow& w) {
    const wxSize voulue = w.GetBestSize();
    return {std::max(pixels(c.largeur), voulue.x), std::max(pixels(c.hauteur), voulue.y)};
}

}  // namespace

void Cadre::place_fenetre() {
    const wxRect place(fenetre.gauche, fenetre.haut, fenetre.largeur, fenetre.hauteur);
    if (place == place_vue_) return;
    place_vue_ = place;
    SetSize(pixels(place.x), pixels(place.y), pixels(place.width), pixels(place.height));
    a_placer_ = true;
}

// The buttons in a row; one that would pass the edge, or touch its neighbour, moves to the left. The
// result is the row's bottom.
int Cadre::place_boutons(int largeur) {
    int bas = 0;
    int limite = largeur - kEcart;
    for (auto nom = kBoutons.rbegin(); nom != kBoutons.rend(); ++nom) {
        const Controle& c = *controle(*nom);
        wxWindow* w = fenetre_de(*nom);
        const wxSize t = taille(c, *w);
        const int x = std::max(0, std::min(pixels(c.gauche), limite - t.x));
        w->SetSize(x, pixels(c.haut), t.x, t.y);
        bas = std::max(bas, pixels(c.haut) + t.y);
        if (c.visible) limite = x - kEcart;
    }
    return bas;
}

// The options below one another, then the button, all within the frame.
void Cadre::place_cadre_angle(int haut, const wxSize& place) {
    wxSize dedans(0, 0);
    for (const Paire& p : paires_) {
        const Controle& c = *p.donnees;
        if (c.cadre != fenetre.FrameAngle.nom) continue;
        wxWindow* w = p.fenetre;
        const wxSize t = taille(c, *w);
        const int y = std::max(pixels(c.haut), dedans.y + kEcart);
        w->SetSize(pixels(c.gauche), y, t.x, t.y);
        dedans = {std::max(dedans.x, pixels(c.gauche) + t.x), y + t.y};
    }
    const Controle& c = fenetre.FrameAngle;
    int bord_haut = 0;
    int bord = 0;
    cadre_angle_->GetBordersForSizer(&bord_haut, &bord);
    const int l = std::max(pixels(c.largeur), dedans.x + kEcart + 2 * bord);
    const int h = std::max(pixels(c.hauteur), dedans.y + kEcart + bord_haut + bord);
    cadre_angle_->SetSize(pixels(c.gauche), haut, std::min(l, place.x), std::min(h, place.y));
}

void Cadre::place_controles() {
    const wxSize dedans = GetClientSize();
    if (dedans.x < kMinimum || dedans.y < kMinimum) return;
    const int etat = etat_->hauteur();
    etat_->place(wxRect(0, dedans.y - etat, dedans.x, etat));
    const int boutons = place_boutons(dedans.x) + kEcart;
    const int ligne = std::max(message_->GetCharHeight(), pixels(fenetre.LblMessage.hauteur));
    const int message = std::min(pixels(fenetre.LblMessage.haut), dedans.y - etat - ligne);
    const auto largeur = [&](const Controle& c) {
        return std::min(pixels(c.largeur), dedans.x - pixels(c.gauche));
    };
    ligne_message_->SetSize(0, message, largeur(fenetre.LblMessage), ligne);
    message_->SetSize(kEcart, 0, largeur(fenetre.LblMessage) - kEcart, ligne);
    for (const Controle* c : {&fenetre.txt, &fenetre.Liste}) {
        const int haut = std::max(pixels(c->haut), boutons);
        const int place = std::max(message - kEcart - haut, 0);
        fenetre_de(c->nom)->SetSize(pixels(c->gauche), haut, largeur(*c),
                                    std::min(pixels(c->hauteur), place));
    }
    place_cadre_angle(std::max(pixels(fenetre.FrameAngle.haut), boutons),
                      {dedans.x - pixels(fenetre.FrameAngle.gauche), message - boutons});
}
