// Listens as a screen reader does: one JSON line for every event of a live region, with the
// identifier of the control and its accessible name at that moment.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <iostream>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/console.hpp"
#include "platform/utf16_windows.hpp"

namespace {

constexpr DWORD kLiveRegionChanged = 0x8019;

void CALLBACK heard(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
    IAccessible* what = nullptr;
    VARIANT part{};
    std::string name;
    if (SUCCEEDED(AccessibleObjectFromEvent(window, static_cast<DWORD>(object),
                                            static_cast<DWORD>(child), &what, &part))) {
        BSTR words = nullptr;
        what->get_accName(part, &words);
        if (words != nullptr) name = depuis_utf16(words);
        SysFreeString(words);
        what->Release();
    }
    std::cout << nlohmann::json{{"id", GetDlgCtrlID(window)}, {"name", name}}.dump() << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    prepare_console(argc, argv);
    CoInitialize(nullptr);
    if (SetWinEventHook(kLiveRegionChanged, kLiveRegionChanged, nullptr, heard, 0, 0,
                        WINEVENT_OUTOFCONTEXT) == nullptr)
        return 1;
    std::cout << "{\"ready\": true}" << std::endl;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
