// A stand-in for a reader: loads its library into every program, as readers do, until its input ends.
//   reader LIBRARY
#include <windows.h>

#include <iostream>
#include <string>
#include <thread>

#include "names.hpp"

int main(int argc, char** argv) {
    const HMODULE library = argc == 2 ? LoadLibraryA(argv[1]) : nullptr;
    if (library == nullptr) return 2;
    names();   // kept as long as this program runs
    const auto procedure = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void (*)()>(GetProcAddress(library, "message_comes")));
    const HHOOK hook =
        procedure == nullptr ? nullptr : SetWindowsHookExW(WH_GETMESSAGE, procedure, library, 0);
    if (hook == nullptr) return 1;
    std::cout << "{\"ready\": true}" << std::endl;
    std::thread([main = GetCurrentThreadId()] {
        for (std::string line; std::getline(std::cin, line);) continue;
        PostThreadMessageW(main, WM_QUIT, 0, 0);
    }).detach();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return UnhookWindowsHookEx(hook) != 0 ? 0 : 1;
}
