// Arguments and streams on Windows: the arguments come in UTF-16, the streams must not change line
// ends, and the terminal is told that they are UTF-8. Changes the terminal's code page until the
// end.
#include "platform/console.hpp"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/utf16_windows.hpp"

namespace {

UINT ancienne_page = 0;   // code page of the terminal before the program, 0 without a terminal

// The program leaves the terminal as it found it.
void rend_page() { SetConsoleOutputCP(ancienne_page); }

void prend_page() {
    ancienne_page = GetConsoleOutputCP();
    if (ancienne_page != 0 && SetConsoleOutputCP(CP_UTF8) != 0) std::atexit(rend_page);
}

struct LibereListe {
    void operator()(wchar_t** liste) const { LocalFree(liste); }
};

}  // namespace

std::vector<std::string> prepare_console(int, char**) {
    for (std::FILE* flux : {stdin, stdout}) _setmode(_fileno(flux), _O_BINARY);
    prend_page();
    int nombre = 0;
    const std::unique_ptr<wchar_t*, LibereListe> liste(
        CommandLineToArgvW(GetCommandLineW(), &nombre));
    std::vector<std::string> arguments;
    for (int i = 1; liste != nullptr && i < nombre; ++i)
        arguments.push_back(depuis_utf16(liste.get()[i]));
    return arguments;
}

bool sortie_au_terminal() { return _isatty(_fileno(stdout)) != 0; }
bool erreurs_au_terminal() { return _isatty(_fileno(stderr)) != 0; }

// Ctrl+C alone can be held back here.
SansInterruption::SansInterruption() { SetConsoleCtrlHandler(nullptr, TRUE); }
SansInterruption::~SansInterruption() { SetConsoleCtrlHandler(nullptr, FALSE); }
