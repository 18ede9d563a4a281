// A sheet that goes from one start of the program to another, as the data of a window message. Keeps the
// window that takes it, which is never shown.
#include "wx/handover.hpp"

#include <windows.h>

#include <wx/app.h>

#include <utility>

#include "platform/utf16_windows.hpp"
#include "shell/events.hpp"
#include "wx/frame.hpp"

namespace {

constexpr const wchar_t* kClasse = L"VoxtabRemise";
constexpr ULONG_PTR kFeuille = 0x766F78;   // tells this data from any other
constexpr UINT kDelai = 15000;             // milliseconds that the running program has for its answer

HWND boite_aux_lettres = nullptr;
std::function<void(const std::string&)> remise;

// The installer of a new version asks the program to end, as the user would: the sheets are saved
// first. While a command shows a box it has to ask again.
void demande_de_quitter() {
    if (remises.commande_en_cours) return;
    vient_devant();
    wxTheApp->CallAfter([] { evenement_menu("mnuQuitterItem"); });
}

LRESULT CALLBACK procedure(HWND w, UINT message, WPARAM valeur, LPARAM suite) {
    if (message == WM_CLOSE) {
        demande_de_quitter();
        return 0;
    }
    const auto* lettre = reinterpret_cast<const COPYDATASTRUCT*>(suite);
    if (message != WM_COPYDATA || lettre->dwData != kFeuille)
        return DefWindowProcW(w, message, valeur, suite);
    const std::string feuille(static_cast<const char*>(lettre->lpData), lettre->cbData);
    remise(feuille);
    return TRUE;
}

}  // namespace

void note_lancement() {}

// The running program may only come to the front when the one that the user has just started lets it.
bool confie_feuille(const std::string& nom, const std::string& feuille) {
    const HWND autre = FindWindowExW(HWND_MESSAGE, nullptr, kClasse, vers_utf16(nom).c_str());
    if (autre == nullptr) return false;
    DWORD programme = 0;
    GetWindowThreadProcessId(autre, &programme);
    AllowSetForegroundWindow(programme);
    std::string octets = feuille;
    COPYDATASTRUCT lettre{kFeuille, static_cast<DWORD>(octets.size()), octets.data()};
    DWORD_PTR pris = FALSE;
    return SendMessageTimeoutW(autre, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&lettre), SMTO_NORMAL,
                               kDelai, &pris) != 0 &&
           pris == TRUE;
}

void attend_feuilles(const std::string& nom, std::function<void(const std::string&)> recoit) {
    remise = std::move(recoit);
    WNDCLASSW classe{};
    classe.lpfnWndProc = procedure;
    classe.hInstance = GetModuleHandleW(nullptr);
    classe.lpszClassName = kClasse;
    RegisterClassW(&classe);
    boite_aux_lettres = CreateWindowExW(0, kClasse, vers_utf16(nom).c_str(), 0, 0, 0, 0, 0,
                                        HWND_MESSAGE, nullptr, classe.hInstance, nullptr);
}

void n_attend_plus() {
    if (HWND w = std::exchange(boite_aux_lettres, nullptr)) DestroyWindow(w);
}

void vient_devant() {
    if (cadre == nullptr) return;
    const auto w = static_cast<HWND>(cadre->GetHandle());
    if (IsIconic(w) != 0) ShowWindow(w, SW_RESTORE);
    SetForegroundWindow(GetLastActivePopup(w));
}
