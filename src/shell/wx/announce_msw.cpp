// Messages to the screen reader on Windows: the message line is a live region, and one event for
// each message tells the reader to say what stands there. A reader asks for the words when it gets
// to the event, and keeps only the last of several that wait: so messages that come together go out
// one after the other, with a moment for each.
#include "shell/wx/announce.hpp"

#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <deque>

#include "platform/utf16_windows.hpp"

namespace {

// What the system's headers of the cross compiler lack.
constexpr DWORD kRegionChangee = 0x8019;   // EVENT_OBJECT_LIVEREGIONCHANGED
constexpr GUID kReglageRegion = {
    0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};   // LiveSetting
constexpr LONG kPoli = 1;   // said behind what is being said

constexpr UINT kMoment = 100;   // milliseconds between two messages that come together
constexpr UINT_PTR kMinuterie = 1;

// Messages that wait for their moment, in UTF-8, and where they are shown. The timer ends with the
// line.
std::deque<std::string> attente;
wxStaticText* ligne_des_messages = nullptr;

HWND poignee(const wxWindow& w) { return static_cast<HWND>(w.GetHandle()); }

// The system's store of what readers are told of a window. Nothing where the system has none.
struct Proprietes {
    IAccPropServices* services = nullptr;
    Proprietes() {
        CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                         reinterpret_cast<void**>(&services));
    }
    ~Proprietes() {
        if (services != nullptr) services->Release();
    }
    Proprietes(const Proprietes&) = delete;
    Proprietes& operator=(const Proprietes&) = delete;

    void pose(const wxWindow& w, const GUID& propriete, LONG valeur) const {
        VARIANT v{};
        v.vt = VT_I4;
        v.lVal = valeur;
        if (services != nullptr)
            services->SetHwndProp(poignee(w), static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                  propriete, v);
    }
    void pose(const wxWindow& w, const GUID& propriete, const std::string& utf8) const {
        if (services != nullptr)
            services->SetHwndPropStr(poignee(w), static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                     propriete, vers_utf16(utf8).c_str());
    }
};

void dit_le_suivant() {
    if (attente.empty()) return;
    ligne_des_messages->SetLabelText(wxString::FromUTF8(attente.front()));
    attente.pop_front();
    NotifyWinEvent(kRegionChangee, poignee(*ligne_des_messages), OBJID_CLIENT, CHILDID_SELF);
}

// The moment of the next message has come.
void CALLBACK moment_venu(HWND fenetre, UINT, UINT_PTR minuterie, DWORD) {
    dit_le_suivant();
    if (attente.empty()) KillTimer(fenetre, minuterie);
}

}  // namespace

// Nothing said clings to a control here.
void prepare_annonce(wxWindow&) {}

void prepare_ligne(wxStaticText& ligne) {
    ligne_des_messages = &ligne;
    Proprietes().pose(ligne, kReglageRegion, kPoli);
}

bool annonce_par_le_focus() { return false; }

// What waited until now is told first, at once: the user has gone on.
void annonce(wxWindow&, const std::vector<std::string>& messages) {
    while (!attente.empty()) dit_le_suivant();
    attente.assign(messages.begin(), messages.end());
    dit_le_suivant();
    if (!attente.empty()) SetTimer(poignee(*ligne_des_messages), kMinuterie, kMoment, moment_venu);
}

void nomme(wxWindow& controle, const std::string& utf8) {
    Proprietes().pose(controle, PROPID_ACC_NAME, utf8);
}

// A text labels the control behind it only where that one has no name of its own.
void n_etiquette_rien(wxWindow&) {}

// A dialog is one already.
void declare_dialogue(wxWindow&) {}

void declare_barre_etat(wxWindow& barre) {
    Proprietes().pose(barre, PROPID_ACC_ROLE, ROLE_SYSTEM_STATUSBAR);
}
