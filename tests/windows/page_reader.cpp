// Reads the pages and boxes of an installer as a screen reader does when the focus comes to one of their
// controls: one JSON line with the window's title, the texts of the page, and the control's name, kind and
// content. Changes nothing.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <iostream>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/console.hpp"
#include "platform/utf16_windows.hpp"
#include "system_name.hpp"

using nlohmann::json;

namespace {

std::string text_of(HWND window) {
    std::wstring text(4096, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return depuis_utf16(text);
}

LONG style_of(HWND window, LONG mask) { return GetWindowLongW(window, GWL_STYLE) & mask; }

// The visible texts of a window, from the first to the last.
BOOL CALLBACK collect(HWND window, LPARAM texts) {
    const bool icon = style_of(window, SS_TYPEMASK) == SS_ICON;
    if (class_of(window) == "Static" && !icon && IsWindowVisible(window) && !text_of(window).empty())
        reinterpret_cast<json*>(texts)->push_back(text_of(window));
    return TRUE;
}

// What kind of control it is, and what is in it.
json content_of(HWND window) {
    if (class_of(window) == "Edit") return {{"kind", "edit"}, {"content", text_of(window)}};
    if (class_of(window) != "Button") return {{"kind", class_of(window)}};
    const LONG type = style_of(window, BS_TYPEMASK);
    if (type != BS_CHECKBOX && type != BS_AUTOCHECKBOX) return {{"kind", "button"}};
    return {{"kind", "check box"}, {"checked", SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED}};
}

void CALLBACK focus_comes(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) {
    const HWND top = GetAncestor(window, GA_ROOT);
    if (top == nullptr || class_of(top) != "#32770" || window == top) return;
    // A box gets the focus before it is shown; on a busy machine its words are still unseen then.
    for (int look = 0; look < 500 && IsWindowVisible(top) == 0; ++look) Sleep(10);
    json texts = json::array();
    EnumChildWindows(top, collect, reinterpret_cast<LPARAM>(&texts));
    json line = content_of(window);
    line.update({{"window", text_of(top)}, {"texts", texts}, {"name", system_name(window)}});
    std::cout << line.dump(-1, ' ', false, json::error_handler_t::replace) << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    prepare_console(argc, argv);
    CoInitialize(nullptr);
    if (SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_FOCUS, nullptr, focus_comes, 0, 0,
                        WINEVENT_OUTOFCONTEXT) == nullptr)
        return 1;
    std::cout << R"({"ready": true})" << std::endl;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
