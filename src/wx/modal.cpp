// What a box or dialog does before it opens, and with the text that the user has entered in it.
// Changes nothing of the core.
#include "wx/modal.hpp"

#include "base/typed_text.hpp"
#include "platform/platform.hpp"
#include "wx/frame.hpp"
#include "wx/positions.hpp"

// As long as the window has not been shown there is nothing to bring up to date.
void ouvre_modal() {
    if (cadre != nullptr && cadre->IsShown()) cadre->montre_avant_boite();
}

bool en_page(const wxString& texte, std::string& sortie) {
    char32_t refuse = 0;
    const auto accepte = texte_accepte(texte.utf8_string(), refuse);
    if (accepte) {
        sortie = texte_de_la_feuille(*accepte);
        return true;
    }
    port.boites.bip();
    port.boites.boite(texte_de_la_feuille(mots_refus(refuse)));
    return false;
}
