// Messages to the screen reader on Windows, by one of two ways, never both. The message line is a
// live region, and one event for each message tells the reader to say what stands there. Readers that
// don't listen to such regions are known by the library that they load into every program: then the
// message becomes the name of the control that has the focus until the focus leaves it. A reader asks
// for the words when it gets to the event, however late that is, and keeps only the last of several
// that wait: so messages that come together go out one after the other, each until a reader has asked.
#include "wx/announce.hpp"

#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <commctrl.h>
#include <wx/panel.h>

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <utility>

#include "base/codepage.hpp"
#include "platform/message.hpp"
#include "platform/utf16_windows.hpp"

namespace {

// What the system's headers of the cross compiler lack.
constexpr DWORD kRegionChangee = 0x8019;   // EVENT_OBJECT_LIVEREGIONCHANGED
constexpr GUID kReglageRegion = {
    0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};   // LiveSetting
constexpr LONG kPoli = 1;   // said after what is being said
constexpr LONG kRacineUia = -25;   // UiaRootObjectId

// The libraries of JAWS and of Dolphin's readers (docs/readers.md).
constexpr std::array kBibliotheques = {L"jhook.dll", L"dolwinhk.dll"};

constexpr UINT kMoment = 100;     // milliseconds that a reader has from its question to the words
constexpr UINT kPatience = 1000;  // milliseconds that a message waits for the question
constexpr std::size_t kAttenteMaxi = 8;   // messages that may wait: a key held down leaves the rest out
constexpr UINT_PTR kMinuterie = 1;
constexpr UINT_PTR kSuite = 2;   // of the windows' procedures, beside that of the text

// Messages that wait for their moment, in UTF-8, and where they are shown. The timer runs from each
// message to the next one, and ends with the line.
std::deque<std::string> attente;
bool moment_court = false;
wxStaticText* ligne_des_messages = nullptr;

// The control that told the last message, whether the reader's question for it is waited for, and whether
// there is a reader at all: where nobody asked, the next message doesn't wait.
HWND voix = nullptr;
bool question_attendue = false;
bool lecteur_present = true;

// The names that the window has given, and the control whose name is a message for the moment.
std::map<HWND, std::string> noms;
HWND porteur = nullptr;
std::string porte;   // its name then, in UTF-8

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
    void nomme(HWND w, const std::string& utf8) const {
        if (services != nullptr)
            services->SetHwndPropStr(w, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                                     vers_utf16(utf8).c_str());
    }
    void oublie_nom(HWND w) const {
        const GUID propriete = PROPID_ACC_NAME;
        if (services != nullptr)
            services->ClearHwndProps(w, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &propriete, 1);
    }
};

// A reader is there that hears names and no live region. It may come and go while the program runs.
bool lecteur_de_noms() {
    return std::any_of(kBibliotheques.begin(), kBibliotheques.end(),
                       [](const wchar_t* nom) { return GetModuleHandleW(nom) != nullptr; });
}

// Gives the control that bears a message its own name again.
void rend_le_nom() {
    const HWND w = std::exchange(porteur, nullptr);
    porte.clear();
    if (w == nullptr) return;
    const auto nom = noms.find(w);
    if (nom != noms.end())
        Proprietes().nomme(w, nom->second);
    else
        Proprietes().oublie_nom(w);
}

void CALLBACK moment_venu(HWND, UINT, UINT_PTR, DWORD);

void arme_minuterie(UINT delai) { SetTimer(poignee(*ligne_des_messages), kMinuterie, delai, moment_venu); }

// That control tells the message from now on.
void attend_la_question(HWND w) {
    voix = w;
    question_attendue = true;
    arme_minuterie(lecteur_present ? kPatience : kMoment);
}

// A reader asks that control for what it is.
void question_posee(HWND w) {
    if (w != voix) return;
    lecteur_present = true;
    if (std::exchange(question_attendue, false)) arme_minuterie(kMoment);
}

// The focus goes, and the message with it: nobody will ask any more.
void la_voix_se_tait(HWND w) {
    if (w == voix && std::exchange(question_attendue, false)) arme_minuterie(kMoment);
}

bool est_question(UINT message, LPARAM objet) {
    return message == WM_GETOBJECT && (static_cast<LONG>(objet) == static_cast<LONG>(OBJID_CLIENT) ||
                                       static_cast<LONG>(objet) == kRacineUia);
}

// Follows the message line, and a control that has a name of its own or bears a message.
LRESULT CALLBACK suit_le_controle(HWND fenetre, UINT message, WPARAM valeur, LPARAM suite,
                                  UINT_PTR numero, DWORD_PTR) {
    const bool finit = message == WM_NCDESTROY;
    if (fenetre == porteur && (finit || message == WM_KILLFOCUS)) rend_le_nom();
    if (message == WM_KILLFOCUS) la_voix_se_tait(fenetre);
    if (est_question(message, suite)) question_posee(fenetre);
    if (finit) {
        noms.erase(fenetre);
        RemoveWindowSubclass(fenetre, suit_le_controle, numero);
    }
    return DefSubclassProc(fenetre, message, valeur, suite);
}

// The message as the name of the control that has the focus. A reader passes over a name that stays
// the same: the same words again get a blank.
void dit_par_le_nom(const std::string& utf8) {
    const HWND w = GetFocus();
    if (w != porteur) rend_le_nom();
    if (w == nullptr) return;
    porteur = w;
    porte = utf8 == porte ? utf8 + " " : utf8;
    SetWindowSubclass(w, suit_le_controle, kSuite, 0);
    Proprietes().nomme(w, porte);
    attend_la_question(w);
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, w, OBJID_CLIENT, CHILDID_SELF);
}

// The line takes "&" as it is given; the name that the system makes of a text has none.
void ecrit_la_ligne(wxStaticText& ligne, const std::string& utf8) {
    ligne.SetLabel(wxString::FromUTF8(utf8));
    Proprietes().nomme(poignee(ligne), utf8);
}

// Tells the first that waits, if any, and begins its moment.
void dit_le_suivant() {
    if (attente.empty()) return;
    const std::string message = attente.front();
    attente.pop_front();
    ecrit_la_ligne(*ligne_des_messages, message);
    arme_minuterie(kMoment);
    if (lecteur_de_noms()) {
        dit_par_le_nom(message);
        return;
    }
    rend_le_nom();
    attend_la_question(poignee(*ligne_des_messages));
    NotifyWinEvent(kRegionChangee, poignee(*ligne_des_messages), OBJID_CLIENT, CHILDID_SELF);
}

// The moment of the next message has come.
void CALLBACK moment_venu(HWND fenetre, UINT, UINT_PTR minuterie, DWORD) {
    if (std::exchange(question_attendue, false)) lecteur_present = false;
    moment_court = !attente.empty();
    dit_le_suivant();
    if (moment_court) return;
    KillTimer(fenetre, minuterie);
    // What was told may be other words than the message.
    ecrit_la_ligne(*ligne_des_messages, vers_utf8(ligne_message.LblMessage));
}

}  // namespace

// The system's events reach a reader from the first one on.
void attend_lecteur() {}

// What clings to a control goes with the focus, by itself.
void prepare_annonce(wxWindow&) {}

// "&" is a sign like others in a message, and no mark of a key.
void prepare_ligne(wxStaticText& ligne) {
    ligne_des_messages = &ligne;
    SetWindowLongPtrW(poignee(ligne), GWL_STYLE,
                      GetWindowLongPtrW(poignee(ligne), GWL_STYLE) | SS_NOPREFIX);
    Proprietes().pose(ligne, kReglageRegion, kPoli);
    SetWindowSubclass(poignee(ligne), suit_le_controle, kSuite, 0);
}

// While a message is told its words stay; the end of its moment shows the last one.
void montre_message(wxStaticText& ligne, const std::string& utf8) {
    if (!moment_court) ecrit_la_ligne(ligne, utf8);
}

bool annonce_par_le_focus() { return false; }

bool titre_lu_par_le_lecteur() { return false; }

// The messages come from another window: nothing waits for the focus.
void apres_le_focus(void (*suite)()) { suite(); }

// The system tells of the line that is selected.
void suit_la_ligne(wxListBox&, int) {}

bool prend_f10() { return false; }
void ouvre_premier_menu(wxMenuBar&) {}

bool menu_lit_ce_qui_est_grise() { return true; }

// A reader reads the words of the system's boxes.
int montre_boite_lue(wxMessageDialog& boite, const wxString&) { return boite.ShowModal(); }

// Keys in quick succession are all heard, each message with its own words.
void annonce(wxWindow&, const std::vector<std::string>& messages) {
    attente.insert(attente.end(), messages.begin(), messages.end());
    while (attente.size() > kAttenteMaxi) attente.pop_front();
    if (attente.empty() || std::exchange(moment_court, true)) return;
    dit_le_suivant();
}

void nomme(wxWindow& controle, const std::string& utf8) {
    controle.SetName(wxString::FromUTF8(utf8));   // in place of the toolkit's English one
    const HWND w = poignee(controle);
    // A panel's own text, which readers find too, is the toolkit's name of it.
    if (dynamic_cast<wxPanel*>(&controle) != nullptr) SetWindowTextW(w, vers_utf16(utf8).c_str());
    noms.insert_or_assign(w, utf8);
    SetWindowSubclass(w, suit_le_controle, kSuite, 0);
    if (w != porteur) Proprietes().nomme(w, utf8);
}

// A text labels the control after it only where that one has no name of its own.
void n_etiquette_rien(wxWindow&) {}

// A dialog is one already.
void declare_dialogue(wxWindow&) {}

void declare_barre_etat(wxWindow& barre) {
    Proprietes().pose(barre, PROPID_ACC_ROLE, ROLE_SYSTEM_STATUSBAR);
}
