// A program that saves over and over is ended in the middle of it, many times: the file is the old
// one whole or the new one whole, whenever that happens.
#include <windows.h>

#include <filesystem>
#include <iostream>
#include <random>
#include <string>

#include "platform/console.hpp"
#include "platform/files.hpp"
#include "platform/system_path.hpp"
#include "platform/utf16_windows.hpp"

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 60;
constexpr std::size_t kSize = 300000;    // bytes of the file, all of them alike
constexpr DWORD kLimit = 20000;          // milliseconds that a child has to get to work
constexpr unsigned kLongestDelay = 60;   // milliseconds from the first save to the end

// Told by the child when it has saved for the first time.
constexpr const wchar_t* kAtWork = L"voxtab-kill-at-work";

// The child: saves a file of one letter, then of the next, without end.
int save_for_ever(const std::string& path) {
    const HANDLE at_work = OpenEventW(EVENT_MODIFY_STATE, FALSE, kAtWork);
    for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
        if (const int failure = remplace_fichier(path, std::string(kSize, letter)); failure != 0)
            return failure;
        SetEvent(at_work);
    }
}

PROCESS_INFORMATION start_child(const std::string& path) {
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(self) + L"\" \"" + vers_utf16(path) + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    CreateProcessW(self, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &child);
    return child;
}

// The file holds one of the child's letters only, as often as it should.
bool whole(const std::string& path) {
    std::string bytes;
    return lit_fichier(path, bytes) == 0 && bytes.size() == kSize && bytes.front() >= 'a' &&
           bytes.find_first_not_of(bytes.front()) == std::string::npos;
}

// One child, ended after `delay` milliseconds of work. True when it was at work until then and has
// left a whole file.
bool round_is_whole(const std::string& path, HANDLE at_work, unsigned delay) {
    const PROCESS_INFORMATION child = start_child(path);
    const bool started = WaitForSingleObject(at_work, kLimit) == WAIT_OBJECT_0;
    const bool alive = WaitForSingleObject(child.hProcess, delay) == WAIT_TIMEOUT;
    TerminateProcess(child.hProcess, 1);
    WaitForSingleObject(child.hProcess, INFINITE);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    ResetEvent(at_work);
    if (!started || !alive) std::cout << "the child was not at work\n";
    return started && alive && whole(path);
}

}  // namespace

int main(int argc, char** argv) {
    const auto arguments = prepare_console(argc, argv);
    if (!arguments.empty()) return save_for_ever(arguments.front());
    const fs::path folder =
        fs::temp_directory_path() / ("voxtab-kill" + std::to_string(GetCurrentProcessId()));
    fs::create_directories(folder);
    const HANDLE at_work = CreateEventW(nullptr, TRUE, FALSE, kAtWork);
    std::mt19937 delays(20260101);
    int broken = 0;
    for (int i = 0; i < kRounds; ++i)
        broken +=
            round_is_whole(chemin_en_utf8(folder / "x.VXT"), at_work, delays() % kLongestDelay) ? 0
                                                                                                : 1;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    std::cout << kRounds << " programs ended while they saved, " << broken << " files broken\n";
    return broken == 0 ? 0 : 1;
}
