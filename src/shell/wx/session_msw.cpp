// The end of a session of Windows. Where the recovery files can't be written the user is asked as when he
// quits, and Cancel keeps the program.
#include "shell/wx/session.hpp"

#include <wx/app.h>
#include <wx/event.h>

#include <cstdlib>

#include "shell/events.hpp"
#include "shell/window.hpp"
#include "shell/wx/single_instance.hpp"

namespace {

void session_va_finir(wxCloseEvent& e) {
    if (evenement_fin_session()) return;
    evenement_menu("mnuQuitterItem");
    if (!fenetre.fermee && e.CanVeto()) e.Veto();
}

void session_finit(wxCloseEvent&) {
    evenement_fin_session();
    rend_dossier();
    std::_Exit(EXIT_SUCCESS);
}

}  // namespace

void suit_fin_de_session() {
    wxTheApp->Bind(wxEVT_QUERY_END_SESSION, session_va_finir);
    wxTheApp->Bind(wxEVT_END_SESSION, session_finit);
}
