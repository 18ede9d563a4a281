// Colours, fonts and texts as the toolkit has them. Changes no state.
#include "wx/appearance.hpp"

#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <string>

#include "wx/contrast.hpp"
#include "wx/positions.hpp"

namespace {

// The palette, red green blue, by index.
constexpr std::array<unsigned long, 16> kPalette = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};

constexpr double kTailleMini = 1;     // points; a smaller size would show nothing
constexpr double kTailleMaxi = 1000;

constexpr double kPartMessage = 0.8;  // of the sheet's size
constexpr double kMessageMaxi = 40;   // points: the sheet needs its room

Teinte teinte(const wxColour& c) { return {c.Red(), c.Green(), c.Blue()}; }

wxColour couleur(const Teinte& t) {
    return wxColour(static_cast<unsigned char>(t.rouge), static_cast<unsigned char>(t.vert),
                    static_cast<unsigned char>(t.bleu));
}

}  // namespace

wxString vers_wx(std::string_view texte) {
    const std::string utf8 = texte_du_controle(texte);
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

wxColour couleur_wx(int indice) {
    if (indice < 0 || indice >= static_cast<int>(kPalette.size())) return wxNullColour;
    const unsigned long c = kPalette[static_cast<std::size_t>(indice)];
    return wxColour(static_cast<unsigned char>(c >> 16), static_cast<unsigned char>((c >> 8) & 0xFF),
                    static_cast<unsigned char>(c & 0xFF));
}

wxFont police_wx(const Police& police) {
    const double taille = police.taille < kTailleMini   ? kTailleMini
                          : police.taille > kTailleMaxi ? kTailleMaxi
                                                        : police.taille;
    const bool fixe = police.nom.starts_with("Courier");
    wxFontInfo info(taille);
    info.FaceName(vers_wx(police.nom)).Bold(police.gras);
    info.Family(fixe ? wxFONTFAMILY_TELETYPE : wxFONTFAMILY_DEFAULT);
    return wxFont(info);
}

Police police_montree(const Controle& c) {
    Police police = c.police;
    if (&c == &fenetre.LblMessage)
        police.taille = std::clamp(kPartMessage * fenetre.txt.police.taille, police.taille, kMessageMaxi);
    if (&c == &fenetre.Liste) {
        const wxFont systeme = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
        police.taille = std::max(police.taille, systeme.GetFractionalPointSize());
    }
    return police;
}

Lettres lettres_lisibles(const wxColour& voulue) {
    const wxColour fond = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    const Lisible lisible = rend_lisible(teinte(voulue), teinte(fond));
    return {couleur(lisible.lettres), couleur(lisible.fond)};
}
