// The end of a session of Windows. Where the recovery files can't be written the user is asked as when he
// quits, and Cancel keeps the program.
#include "wx/session.hpp"

#include <windows.h>

#include <wx/app.h>
#include <wx/event.h>
#include <wx/window.h>

#include <cstdlib>

#include "shell/events.hpp"
#include "shell/window.hpp"
#include "wx/single_instance.hpp"

namespace {

// The system covers the screen while a program keeps the session: it tells why.
constexpr const wchar_t* kRaison = L"Une feuille n'est pas enregistrée et ne peut pas être gardée.";

void session_va_finir(wxCloseEvent& e) {
    if (evenement_fin_session()) return;
    const HWND fenetre_principale = static_cast<HWND>(wxTheApp->GetTopWindow()->GetHandle());
    ShutdownBlockReasonCreate(fenetre_principale, kRaison);
    evenement_menu("mnuQuitterItem");
    ShutdownBlockReasonDestroy(fenetre_principale);
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
