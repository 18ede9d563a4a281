// The Escape key on Windows: the system notes a press until it is asked, so that a key which is let go
// between two looks counts. Changes the queue of messages.
#include "shell/wx/escape.hpp"

#include <windows.h>

namespace {

// Its messages at the head of the queue are done with: they would close the box that tells of the end.
void retire_de_la_file() {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE) != 0 &&
           message.wParam == VK_ESCAPE)
        PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);
}

}  // namespace

bool echap_tapee() {
    const bool tapee = GetAsyncKeyState(VK_ESCAPE) != 0;   // down, or pressed since the last look
    if (tapee) retire_de_la_file();
    return tapee;
}
