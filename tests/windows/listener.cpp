// Listens as screen readers do: one JSON line for every event of a live region, and for every name that
// changes of a control that can have the focus, with the control's identifier and its accessible name at
// that moment. "slow N" on standard input makes it N milliseconds late with each question, as a reader
// is that has much to do.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <atomic>
#include <iostream>
#include <string>
#include <thread>

#include <nlohmann/json.hpp>

#include "names.hpp"
#include "platform/console.hpp"
#include "platform/utf16_windows.hpp"
#include "system_name.hpp"

namespace {

constexpr DWORD kLiveRegionChanged = 0x8019;
constexpr int kFirst = 1002;   // identifiers of the controls that can have the focus
constexpr int kLast = 1011;

std::atomic<int> late = 0;   // milliseconds

void hear_commands() {
    std::string word;
    int milliseconds = 0;
    while (std::cin >> word >> milliseconds) late = milliseconds;
}

// What a reader finds as the name: it asks the window what it is, and gets what the window has given, or
// what the system makes of the window.
std::string name_of(HWND window, LONG object, LONG child) {
    IAccessible* what = nullptr;
    VARIANT part{};
    if (FAILED(AccessibleObjectFromEvent(window, static_cast<DWORD>(object),
                                         static_cast<DWORD>(child), &what, &part)))
        return "";
    if (const auto given = noted_name(window)) {
        what->Release();
        return depuis_utf16(*given);
    }
    return take_name(what, part);
}

void CALLBACK heard(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
    const int id = GetDlgCtrlID(window);
    const bool live = event == kLiveRegionChanged;
    if (!live && (id < kFirst || id > kLast)) return;
    Sleep(static_cast<DWORD>(late));
    std::cout << nlohmann::json{{"event", live ? "live" : "name"},
                                {"id", id},
                                {"name", name_of(window, object, child)}}
                     .dump()
              << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    prepare_console(argc, argv);
    CoInitialize(nullptr);
    for (const DWORD event : {static_cast<DWORD>(EVENT_OBJECT_NAMECHANGE), kLiveRegionChanged})
        if (SetWinEventHook(event, event, nullptr, heard, 0, 0, WINEVENT_OUTOFCONTEXT) == nullptr)
            return 1;
    std::thread(hear_commands).detach();
    std::cout << "{\"ready\": true}" << std::endl;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
