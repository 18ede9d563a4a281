// Printing on Windows: lines of the chosen font one below the other, from the left edge, for the
// margin stands in the text. Sizes are those of a screen of 96 dots to the inch, scaled to the
// printer's.
#include "wx/printing.hpp"

#include <wx/dcprint.h>
#include <wx/log.h>
#include <wx/printdlg.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/platform.hpp"
#include "wx/appearance.hpp"
#include "wx/frame.hpp"
#include "wx/modal.hpp"
#include "wx/pages.hpp"

namespace {

constexpr int kMargeHaut = 37;   // left free above and below the text: 28 points
constexpr double kPointsEcran = 96;

wxPrintData reglages_imprimante;   // what the user has chosen; the default printer until then

// The printer takes the sizes of a screen from then on.
void prend_echelle(wxPrinterDC& dc, const wxFont& police) {
    const wxSize points = dc.GetPPI();
    dc.SetUserScale(points.x / kPointsEcran, points.y / kPointsEcran);
    dc.SetFont(police);
    dc.SetTextForeground(*wxBLACK);
}

void dessine(wxPrinterDC& dc, const Page& page) {
    int y = kMargeHaut;
    for (const std::string& ligne : page) {
        dc.DrawText(vers_wx(ligne), 0, y);
        y += dc.GetCharHeight();
    }
}

bool tire(const std::string& texte, const wxFont& police) {
    const wxLogNull sans_message;
    wxPrinterDC dc(reglages_imprimante);
    if (!dc.IsOk() || !dc.StartDoc(vers_wx(fenetre.titre))) return false;
    prend_echelle(dc, police);
    const int place = dc.DeviceToLogicalYRel(dc.GetSize().y) - 2 * kMargeHaut;
    const auto lignes =
        static_cast<std::size_t>(std::max(1, place / std::max(1, dc.GetCharHeight())));
    for (const Page& page : pages_de(texte, lignes)) {
        dc.StartPage();
        dessine(dc, page);
        dc.EndPage();
    }
    dc.EndDoc();
    return true;
}

// The text on the printer. What goes wrong is told here, in words, and so it goes no further: the
// number that a failure is told by would be a second box, and tells nobody that no printer is there.
int imprime(const std::string& texte, const std::string& police, double taille) {
    ouvre_modal();
    if (!tire(texte, police_wx({police, taille, false})))
        port.boites.boite(kEchecImpression);
    return 0;
}

}  // namespace

bool choisit_imprimante(wxWindow* parent) {
    wxPrintDialogData donnees(reglages_imprimante);
    donnees.EnablePageNumbers(false);
    wxPrintDialog dialogue(parent, &donnees);
    if (dialogue.ShowModal() != wxID_OK) return false;
    reglages_imprimante = dialogue.GetPrintDialogData().GetPrintData();
    return true;
}

void imprime_vers(const std::string& fichier) {
    reglages_imprimante.SetFilename(wxString::FromUTF8(fichier));
}

void installe_imprimante() { port.imprimante.imprime = imprime; }
