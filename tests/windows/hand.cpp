// What the system makes of keys where a keyboard of the test can't: signs of the touch keyboard or of a
// dictation, which no key types, and the characters of keys that are held with AltGr, which are Ctrl and
// Alt on Windows. Reads one command a line, answers one JSON line.
#include <windows.h>

#include <iostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/console.hpp"
#include "platform/utf16_windows.hpp"

using nlohmann::json;

namespace {

HWND foreground() { return GetForegroundWindow(); }

DWORD thread_of(HWND window) { return GetWindowThreadProcessId(window, nullptr); }

// The control that has the keyboard.
HWND focused() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(thread_of(foreground()), &thread);
    return thread.hwndFocus;
}

// Which keys the program has taken from the display as down: the modifiers, and how many others. What is
// typed from here on stands after these presses in its queue.
json held() {
    const auto down = [](int key) { return GetAsyncKeyState(key) < 0; };
    int others = 0;
    for (int key = VK_BACK; key < VK_PACKET; ++key)
        if ((key < VK_SHIFT || key > VK_MENU) && (key < VK_LSHIFT || key > VK_RMENU) && down(key)) ++others;
    return {{"maj", down(VK_SHIFT)}, {"ctrl", down(VK_CONTROL)}, {"alt", down(VK_MENU)}, {"others", others}};
}

// Types signs as the touch keyboard does: a press without a key, and the sign.
json types(const std::wstring& text) {
    std::vector<INPUT> presses;
    for (const wchar_t sign : text) {
        for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
            INPUT press{};
            press.type = INPUT_KEYBOARD;
            press.ki.wScan = sign;
            press.ki.dwFlags = KEYEVENTF_UNICODE | up;
            presses.push_back(press);
        }
    }
    const auto count = static_cast<UINT>(presses.size());
    return SendInput(count, presses.data(), sizeof(INPUT)) == count;
}

// The characters of a key that has gone down, as the system puts them after the press.
json characters(const std::wstring& text, UINT message) {
    const HWND window = focused();
    bool sent = window != nullptr;
    for (const wchar_t sign : text) sent = sent && PostMessageW(window, message, sign, 1) != 0;
    return sent;
}

json answer(const std::string& command, const std::string& text) {
    if (command == "held") return held();
    const std::wstring signs = vers_utf16(text);
    if (command == "types") return types(signs);
    if (command == "characters") return characters(signs, WM_CHAR);
    if (command == "dead") return characters(signs, WM_DEADCHAR);
    return {{"error", "no such command"}};
}

}  // namespace

int main(int argc, char** argv) {
    prepare_console(argc, argv);
    std::string line;
    while (std::getline(std::cin, line)) {
        const auto blank = line.find(' ');
        const json words = json::parse(line.substr(blank + 1), nullptr, false);
        std::cout << answer(line.substr(0, blank), words.is_string() ? words.get<std::string>() : "").dump()
                  << std::endl;
    }
    return 0;
}
