// Looks at the running program from outside, through window messages and its accessible objects.
// Reads one command a line, answers one JSON line: what the Python side asks while it drives the
// keys.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <cstring>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "names.hpp"
#include "platform/console.hpp"
#include "platform/utf16_windows.hpp"
#include "system_name.hpp"

using nlohmann::json;

namespace {

constexpr UINT kLimit = 5000;   // milliseconds that the program has for an answer

std::string text_of(HWND window) {
    DWORD_PTR length = 0;
    if (SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, kLimit, &length) == 0)
        return "";
    std::wstring text(length + 1, L'\0');
    DWORD_PTR read = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, kLimit, &read);
    text.resize(read);
    return depuis_utf16(text);
}

// The windows that `next` goes through.
using Visit = std::function<void(HWND)>;
BOOL CALLBACK visit(HWND window, LPARAM data) {
    (*reinterpret_cast<Visit*>(data))(window);
    return TRUE;
}
void each_top(Visit v) { EnumWindows(visit, reinterpret_cast<LPARAM>(&v)); }
void each_child(HWND parent, Visit v) {
    EnumChildWindows(parent, visit, reinterpret_cast<LPARAM>(&v));
}

HWND main_window() {
    HWND found = nullptr;
    each_top([&](HWND w) {
        if (GetWindow(w, GW_OWNER) == nullptr && IsWindowVisible(w) &&
            text_of(w).starts_with("VOXTAB") && class_of(w).starts_with("wxWindow"))
            found = w;
    });
    return found;
}

// The box or dialog over the window, or one without a window: before it comes, or of another run; or
// nullptr.
HWND box() {
    const HWND main = main_window();
    HWND found = nullptr;
    each_top([&](HWND w) {
        const HWND owner = GetWindow(w, GW_OWNER);
        const bool alone = (main == nullptr || owner == nullptr) && class_of(w) == "#32770";
        const bool over = main != nullptr && w != main && owner == main;
        if (found == nullptr && IsWindowVisible(w) && (alone || over)) found = w;
    });
    return found;
}

HWND control(int id) {
    HWND found = nullptr;
    each_child(main_window(), [&](HWND w) {
        if (GetDlgCtrlID(w) == id) found = w;
    });
    return found;
}

HWND focused() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    const HWND main = main_window();
    GetGUIThreadInfo(GetWindowThreadProcessId(main, nullptr), &thread);
    return thread.hwndFocus;
}

std::string accessible_name(HWND window) {
    if (const auto given = noted_name(window)) return depuis_utf16(*given);
    return system_name(window);
}

json state_of(HWND w) {
    const auto style = static_cast<DWORD>(GetWindowLongW(w, GWL_STYLE));
    return {{"id", GetDlgCtrlID(w)},
            {"class", class_of(w)},
            {"text", text_of(w)},
            {"visible", IsWindowVisible(w) != 0},
            {"enabled", IsWindowEnabled(w) != 0},
            {"style", style},
            {"focus", focused() == w}};
}

json children_of(HWND window) {
    json list = json::array();
    each_child(window, [&](HWND w) {
        if (IsWindowVisible(w)) list.push_back(state_of(w));
    });
    return list;
}

// The accessible object of a window or of its part, nullptr when there is none.
IAccessible* accessible_of(HWND window) {
    IAccessible* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                               reinterpret_cast<void**>(&object));
    return object;
}

// A text of the accessible object, by one of its questions.
std::string words_of(IAccessible& object, HRESULT (STDMETHODCALLTYPE IAccessible::*question)(VARIANT, BSTR*)) {
    VARIANT self{};
    self.vt = VT_I4;
    BSTR words = nullptr;
    (object.*question)(self, &words);
    const std::string text = words == nullptr ? "" : depuis_utf16(words);
    SysFreeString(words);
    return text;
}

// What a reader finds of a window: the window's own text, and what its accessible object answers.
json named(HWND window) {
    json row = {{"id", GetDlgCtrlID(window)}, {"class", class_of(window)}, {"text", text_of(window).substr(0, 80)}};
    if (IAccessible* const object = accessible_of(window); object != nullptr) {
        row["name"] = words_of(*object, &IAccessible::get_accName);
        row["description"] = words_of(*object, &IAccessible::get_accDescription);
        row["help"] = words_of(*object, &IAccessible::get_accHelp);
        object->Release();
    }
    return row;
}

json tree(HWND window) {
    json rows = json::array({named(window)});
    each_child(window, [&](HWND w) {
        if (IsWindowVisible(w)) rows.push_back(named(w));
    });
    return rows;
}

json box_answer() {
    const HWND w = box();
    if (w == nullptr) return nullptr;
    return {{"title", text_of(w)}, {"class", class_of(w)}, {"children", children_of(w)}};
}

json selection(int id) {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(control(id), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                 reinterpret_cast<LPARAM>(&to));
    return {from, to};
}

json list_of(int id) {
    const HWND w = control(id);
    json lines = json::array();
    const auto count = SendMessageW(w, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const auto length =
            static_cast<std::size_t>(SendMessageW(w, LB_GETTEXTLEN, static_cast<WPARAM>(i), 0));
        std::wstring line(length + 1, L'\0');
        SendMessageW(w, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line.data()));
        line.resize(length);
        lines.push_back(depuis_utf16(line));
    }
    return lines;
}

json state_answer(int id) {
    const HWND w = control(id);
    return w == nullptr ? json(nullptr) : state_of(w);
}

json message_answer(int id, UINT message) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(control(id), message, 0, 0, SMTO_NORMAL, kLimit, &result) == 0)
        return nullptr;
    return static_cast<long>(result);
}

// Puts a text in the clipboard, as another program would.
bool clip(const std::string& utf8) {
    const std::wstring text = vers_utf16(utf8);
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory == nullptr || OpenClipboard(nullptr) == 0) return false;
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    EmptyClipboard();
    const bool set = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    return CloseClipboard() != 0 && set;
}

// Whether the stand-in reader's library is at work in the program.
json hooked(int) {
    DWORD process = 0;
    GetWindowThreadProcessId(main_window(), &process);
    return process != 0 && names()->process == static_cast<LONG>(process);
}

// Ends the program as a task manager does.
bool terminate() {
    DWORD id = 0;
    GetWindowThreadProcessId(main_window(), &id);
    const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
    const bool ended = process != nullptr && TerminateProcess(process, 1) != 0 &&
                       WaitForSingleObject(process, kLimit) == WAIT_OBJECT_0;
    CloseHandle(process);
    return ended;
}

// What the system sends when the session ends, with the reason. A question inside the message is
// answered before it comes back.
bool query_end(LPARAM reason) { return SendMessageW(main_window(), WM_QUERYENDSESSION, 0, reason) != 0; }
bool end_session(WPARAM ends, LPARAM reason) {
    return SendMessageTimeoutW(main_window(), WM_ENDSESSION, ends, reason, SMTO_NORMAL, kLimit, nullptr) != 0;
}

const std::map<std::string, std::function<json(int)>> commands = {
    {"title",
     [](int) { return main_window() == nullptr ? json(nullptr) : json(text_of(main_window())); }},
    {"text", [](int id) { return json(text_of(control(id))); }},
    {"name", [](int id) { return json(accessible_name(control(id))); }},
    {"tree", [](int) { return tree(box() != nullptr ? box() : main_window()); }},
    {"hooked", hooked},
    {"wake", [](int id) { return json(PostMessageW(control(id), WM_NULL, 0, 0) != 0); }},
    {"state", state_answer},
    {"children", [](int) { return children_of(main_window()); }},
    {"box", [](int) { return box_answer(); }},
    {"focus", [](int) { return focused() == nullptr ? json(nullptr) : state_of(focused()); }},
    {"selection", selection},
    {"list", list_of},
    {"chosen", [](int id) { return message_answer(id, LB_GETCURSEL); }},
    {"checked", [](int id) { return message_answer(id, BM_GETCHECK); }},
    {"undo", [](int id) { return message_answer(id, WM_UNDO); }},
    {"undo_text", [](int id) { return message_answer(id, EM_UNDO); }},
    {"paste", [](int id) { return message_answer(id, WM_PASTE); }},
    {"cut", [](int id) { return message_answer(id, WM_CUT); }},
    {"terminate", [](int) { return json(terminate()); }},
    {"query_end", [](int reason) { return json(query_end(reason)); }},
    {"end_session", [](int reason) { return json(end_session(TRUE, reason)); }},
    {"session_goes_on", [](int) { return json(end_session(FALSE, 0)); }},
    {"close", [](int) { return json(PostMessageW(main_window(), WM_CLOSE, 0, 0) != 0); }},
};

}  // namespace

int main(int argc, char** argv) {
    prepare_console(argc, argv);
    CoInitialize(nullptr);
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string name;
        int id = 0;
        words >> name >> id;
        const auto command = commands.find(name);
        json answer = {{"error", "no such command"}};
        if (command != commands.end()) answer = command->second(id);
        if (name == "clip") answer = clip(json::parse(line.substr(name.size())).get<std::string>());
        std::cout << answer.dump(-1, ' ', false, json::error_handler_t::replace) << std::endl;
    }
    return 0;
}
