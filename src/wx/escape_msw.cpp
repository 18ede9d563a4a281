// The Escape key on Windows: the system notes a press until it is asked, so that a key which is let go
// between two looks counts. Changes the queue of messages.
#include "wx/escape.hpp"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "shell/key_codes.hpp"
#include "shell/keys.hpp"
#include "wx/keys_msw.hpp"

namespace {

// Keys only: what other programs send is not dealt with in the middle of a calculation.
constexpr UINT kTouches = PM_QS_INPUT;

// The next message of the keyboard, which may stay in the queue. False when none waits.
bool message_du_clavier(MSG& message, UINT garde) {
    return PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, garde | kTouches) != 0;
}

bool enfonce(const MSG& message) { return message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN; }

// The press of a key that the core holds for pressed already, and that has not come up among `passees`.
bool tenue_encore(const MSG& message, const std::vector<MSG>& passees) {
    const int touche = touche_du_code(static_cast<int>(message.wParam));
    const auto relache = [&](const MSG& m) { return m.wParam == message.wParam && !enfonce(m); };
    return enfonce(message) && touche != kToucheAutre && est_tenue(touche) && std::ranges::none_of(passees, relache);
}

// The messages of Escape are done with: they would close the box that tells of the end. Those of other keys go
// back in their order, up to the first key that was pressed meanwhile, or all of them (`tout`): a key that is
// put back has lost the capitals it was pressed with. A key that is held is not put back: its command would begin
// again, for the press that began the calculation is still there. Looking there also tells the system that the
// program is alive. True when Escape was pressed.
bool retire_de_la_file(bool tout) {
    bool tapee = false;
    std::vector<MSG> autres;
    MSG message;
    while (message_du_clavier(message, PM_NOREMOVE) &&
           (tout || message.wParam == VK_ESCAPE || !enfonce(message))) {
        message_du_clavier(message, PM_REMOVE);
        if (message.wParam == VK_ESCAPE)
            tapee = tapee || enfonce(message);
        else if (!tenue_encore(message, autres))
            autres.push_back(message);
    }
    for (const MSG& m : autres) PostMessageW(m.hwnd, m.message, m.wParam, m.lParam);
    return tapee;
}

}  // namespace

void oublie_echap() { GetAsyncKeyState(VK_ESCAPE); }

bool echap_tapee() {
    const bool en_tete = retire_de_la_file(false);
    const bool tapee = GetAsyncKeyState(VK_ESCAPE) != 0 || en_tete;   // down, or pressed since the last look
    if (tapee) retire_de_la_file(true);
    return tapee;
}
