// What the system's own text control takes for a long text, without the program: filled, its lines replaced by
// longer ones, and back, by the ways that it has. One JSON line for each way: seconds of the clock and of the
// processor, in turn. For measure_speed.py.
#include <windows.h>

#include <array>
#include <iostream>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/console.hpp"

namespace {

constexpr int kLines = 32000;

double seconds() { return static_cast<double>(GetTickCount64()) / 1000; }

double processor() {
    FILETIME unused{}, kernel{}, user{};
    GetProcessTimes(GetCurrentProcess(), &unused, &unused, &kernel, &user);
    const auto value = [](const FILETIME& t) {
        return static_cast<double>(ULARGE_INTEGER{{t.dwLowDateTime, t.dwHighDateTime}}.QuadPart) * 1e-7;
    };
    return value(kernel) + value(user);
}

std::wstring sheet(bool calculated) {
    std::wstring text;
    for (int i = 0; i < kLines; ++i) {
        if (i > 0) text += L"\r\n";
        text += std::to_wstring(i % 97) + L"+" + std::to_wstring(i % 13);
        if (calculated) text += L" = " + std::to_wstring(i % 97 + i % 13);
    }
    return text;
}

void replaces(HWND edit, const std::wstring& text) {
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}
void replaces_undrawn(HWND edit, const std::wstring& text) {
    SendMessageW(edit, WM_SETREDRAW, FALSE, 0);
    replaces(edit, text);
    SendMessageW(edit, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(edit, nullptr, TRUE);
}
void replaces_hidden(HWND edit, const std::wstring& text) {
    ShowWindow(edit, SW_HIDE);
    replaces(edit, text);
    ShowWindow(edit, SW_SHOW);
}
void sets(HWND edit, const std::wstring& text) { SetWindowTextW(edit, text.c_str()); }

struct Way {
    const char* name;
    void (*write)(HWND, const std::wstring&);
};
constexpr std::array kWays = {Way{"EM_REPLACESEL", replaces}, Way{"EM_REPLACESEL, WM_SETREDRAW off", replaces_undrawn},
                              Way{"EM_REPLACESEL, hidden", replaces_hidden}, Way{"WM_SETTEXT", sets}};

void measure(HWND window, const Way& way) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_WANTRETURN |
                        ES_AUTOHSCROLL | ES_AUTOVSCROLL | ES_NOHIDESEL;
    const HWND edit = CreateWindowExW(0, L"EDIT", L"", style, 0, 0, 780, 560, window, nullptr, nullptr, nullptr);
    SendMessageW(edit, EM_LIMITTEXT, 0, 0);
    SetFocus(edit);
    nlohmann::json steps = nlohmann::json::array();
    for (const bool calculated : {false, true, false}) {
        const std::wstring text = sheet(calculated);
        const double clock = seconds();
        const double worked = processor();
        way.write(edit, text);
        SendMessageW(edit, EM_SCROLLCARET, 0, 0);
        UpdateWindow(edit);
        steps.push_back({seconds() - clock, processor() - worked});
    }
    std::cout << nlohmann::json{{"way", way.name}, {"seconds", steps}}.dump() << std::endl;
    DestroyWindow(edit);
}

}  // namespace

int main(int argc, char** argv) {
    prepare_console(argc, argv);
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 600, nullptr,
                                        nullptr, nullptr, nullptr);
    for (const Way& way : kWays) measure(window, way);
    return 0;
}
