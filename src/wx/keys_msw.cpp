// The keys of Windows, by their virtual codes: what a key means by itself, whatever it types. AltGr
// is Ctrl and Alt there already.
#include "wx/keys.hpp"

#include <windows.h>

#include <array>

#include "shell/key_codes.hpp"
#include "wx/keys_msw.hpp"

namespace {

struct Cle {
    int code;
    int touche;
};
constexpr std::array kCles = {
    Cle{VK_ESCAPE, kToucheEchap},
    Cle{VK_RETURN, kToucheEntree},
    Cle{VK_LEFT, kToucheGauche},
    Cle{VK_RIGHT, kToucheDroite},
    Cle{VK_UP, kToucheHautFleche},
    Cle{VK_DOWN, kToucheBas},
    Cle{VK_HOME, kToucheDebut},
    Cle{VK_END, kToucheFin},
    Cle{VK_PRIOR, kTouchePagePrecedente},
    Cle{VK_NEXT, kTouchePageSuivante},
    Cle{VK_INSERT, kToucheInser},
    Cle{VK_DELETE, kToucheSuppr},
    Cle{VK_BACK, kToucheArriere},
    Cle{VK_TAB, kToucheTab},
    Cle{VK_SHIFT, kToucheMaj},
    Cle{VK_CONTROL, kToucheCtrl},
    Cle{VK_MENU, kToucheAlt},
};

bool enfoncee(int code) { return GetKeyState(code) < 0; }

}  // namespace

int touche_du_code(int code) {
    if (code >= VK_F1 && code <= VK_F12) return kToucheF1 + code - VK_F1;
    if ((code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z')) return code;
    for (const Cle& cle : kCles)
        if (cle.code == code) return cle.touche;
    return kToucheAutre;
}

FrappeTouche frappe_de(const wxKeyEvent& evenement) {
    return {touche_du_code(static_cast<int>(evenement.GetRawKeyCode())), enfoncee(VK_SHIFT),
            enfoncee(VK_CONTROL), enfoncee(VK_MENU)};
}

int caractere_de(const wxKeyEvent& evenement) {
    if (evenement.ControlDown() != evenement.AltDown()) return 0;
    const wxChar signe = evenement.GetUnicodeKey();
    return signe == WXK_NONE || signe == WXK_DELETE ? 0 : static_cast<int>(signe);
}

// The system keeps the accent until the letter comes, whichever control gets it.
bool est_touche_morte(const wxKeyEvent&) { return false; }

void rejoue_frappe(const wxKeyEvent& evenement, wxWindow& controle) {
    PostMessageW(static_cast<HWND>(controle.GetHandle()), WM_KEYDOWN, evenement.GetRawKeyCode(),
                 static_cast<LPARAM>(evenement.GetRawKeyFlags()));
}

bool menu_ouvert() {
    GUITHREADINFO fil{};
    fil.cbSize = sizeof fil;
    return GetGUIThreadInfo(GetCurrentThreadId(), &fil) != 0 &&
           (fil.flags & (GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE)) != 0;
}
