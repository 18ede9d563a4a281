// The Escape key on Windows: the system notes a press until it is asked, so that a key which is let go
// between two looks counts. Changes the queue of messages.
#include "shell/wx/escape.hpp"

#include <windows.h>

#include <vector>

namespace {

// Keys only: what other programs send is not dealt with in the middle of a calculation.
constexpr UINT kTouches = PM_QS_INPUT;

// The next message of the keyboard, which may stay in the queue. False when none waits.
bool message_du_clavier(MSG& message, UINT garde) {
    return PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, garde | kTouches) != 0;
}

bool relache(const MSG& message) { return message.message == WM_KEYUP || message.message == WM_SYSKEYUP; }

// Its messages are done with, unless something was typed before it: they would close the box that tells of
// the end. The keys let go before it, as the one of the command, go back. Looking there also tells the system
// that the program is alive.
bool retire_de_la_file() {
    bool tapee = false;
    std::vector<MSG> relachees;
    MSG message;
    while (message_du_clavier(message, PM_NOREMOVE) && (message.wParam == VK_ESCAPE || relache(message))) {
        message_du_clavier(message, PM_REMOVE);
        if (message.wParam == VK_ESCAPE)
            tapee = tapee || !relache(message);
        else
            relachees.push_back(message);
    }
    for (const MSG& m : relachees) PostMessageW(m.hwnd, m.message, m.wParam, m.lParam);
    return tapee;
}

}  // namespace

bool echap_tapee() {
    const bool dans_la_file = retire_de_la_file();
    return GetAsyncKeyState(VK_ESCAPE) != 0 || dans_la_file;   // down, or pressed since the last look
}
