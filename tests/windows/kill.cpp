// A program that saves over and over is ended in the middle of it, many times: the file is the old
// one whole or the new one whole, whenever that happens, and the next save leaves nothing of it
// beside the file. Then several programs save one file at once. Real files in a folder of its own.
#include <windows.h>

#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <vector>

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
constexpr int kPrograms = 6;             // more than have a place of their own beside the file
constexpr int kSaves = 40;               // of each of them

// Told by the child when it has saved for the first time.
constexpr const wchar_t* kAtWork = L"voxtab-kill-at-work";

// Files of different programs have different sizes, so that a mixed one is seen.
std::string content(char letter) {
    return std::string(kSize + 1000 * static_cast<std::size_t>(letter - 'a'), letter);
}

// ---- The child

// Saves a file of one letter, then of the next, without end.
int save_for_ever(const std::string& path) {
    const HANDLE at_work = OpenEventW(EVENT_MODIFY_STATE, FALSE, kAtWork);
    for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
        if (const int failure = remplace_fichier(path, content(letter)); failure != 0)
            return failure;
        SetEvent(at_work);
    }
}

// Saves its own letter again and again; 0 when every save went well.
int save_often(const std::string& path, char letter) {
    for (int n = 0; n < kSaves; ++n)
        if (const int failure = remplace_fichier(path, content(letter)); failure != 0)
            return failure;
    return 0;
}

// ---- The parent

PROCESS_INFORMATION start_child(const std::string& path, const std::string& letter) {
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(self) + L"\" \"" + vers_utf16(path + "\" " + letter);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    CreateProcessW(self, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &child);
    return child;
}

void close(const PROCESS_INFORMATION& child) {
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
}

// The file holds one letter only, as often as it should.
bool whole(const std::string& path) {
    std::string bytes;
    return lit_fichier(path, bytes) == 0 && !bytes.empty() && bytes.front() >= 'a' &&
           bytes.front() <= 'z' && bytes == content(bytes.front());
}

int temporary_files(const fs::path& folder) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().filename().native().starts_with(L".voxtab.")) ++count;
    return count;
}

// True when it is so; otherwise says what isn't.
bool hold(bool condition, const std::string& what) {
    if (!condition) std::cout << "FAILED: " << what << '\n';
    return condition;
}

// One child, ended after `delay` milliseconds of work, and the save after it, which finds what that
// one has left, whatever the capitals of the name. `left` counts the files left until then.
bool round_is_whole(const fs::path& folder, HANDLE at_work, unsigned delay, int& left) {
    const std::string path = chemin_en_utf8(folder / "x.VXT");
    const PROCESS_INFORMATION child = start_child(path, "");
    const bool started = WaitForSingleObject(at_work, kLimit) == WAIT_OBJECT_0;
    const bool alive = WaitForSingleObject(child.hProcess, delay) == WAIT_TIMEOUT;
    TerminateProcess(child.hProcess, 1);
    WaitForSingleObject(child.hProcess, INFINITE);
    close(child);
    ResetEvent(at_work);
    const int leftover = temporary_files(folder);
    left += leftover;
    return hold(started && alive, "the child was not at work") &&
           hold(whole(path), "the file is broken") &&
           hold(leftover <= 1, "one end has left several files") &&
           hold(remplace_fichier(chemin_en_utf8(folder / "X.vxt"), content('m')) == 0,
                "the next save has failed") &&
           hold(temporary_files(folder) == 0, "the next save has left a file") &&
           hold(whole(path), "the next save has broken the file");
}

// How often that went wrong. Some of the ends must have come in the middle of a save.
int end_often(const fs::path& folder) {
    const HANDLE at_work = CreateEventW(nullptr, TRUE, FALSE, kAtWork);
    std::mt19937 delays(20260101);
    int broken = 0;
    int left = 0;
    for (int i = 0; i < kRounds; ++i)
        broken += round_is_whole(folder, at_work, delays() % kLongestDelay, left) ? 0 : 1;
    std::cout << kRounds << " programs ended while they saved, " << broken << " failed, " << left
              << " temporary files left until the next save\n";
    return broken + (hold(left > 0, "no end came in the middle of a save") ? 0 : 1);
}

// Several programs save one file at once: it is whole whenever it is read, no save fails, and nothing
// stays beside it.
int save_at_once(const fs::path& folder) {
    const std::string path = chemin_en_utf8(folder / "x.VXT");
    std::vector<PROCESS_INFORMATION> children;
    for (int i = 0; i < kPrograms; ++i)
        children.push_back(start_child(path, std::string(1, static_cast<char>('a' + i))));
    int broken = 0;
    int reads = 0;
    for (const PROCESS_INFORMATION& child : children) {
        do {
            broken += hold(whole(path), "a file that several save is broken") ? 0 : 1;
            ++reads;
        } while (WaitForSingleObject(child.hProcess, 1) == WAIT_TIMEOUT);
        DWORD status = 1;
        GetExitCodeProcess(child.hProcess, &status);
        const std::string words = "a save beside others has failed: " + std::to_string(status);
        broken += hold(status == 0, words) ? 0 : 1;
        close(child);
    }
    broken += hold(temporary_files(folder) == 0, "saves at once have left a file") ? 0 : 1;
    std::cout << kPrograms << " programs saved at once, " << reads << " reads, " << broken
              << " failed\n";
    return broken;
}

}  // namespace

int main(int argc, char** argv) {
    const auto arguments = prepare_console(argc, argv);
    if (arguments.size() == 1) return save_for_ever(arguments.front());
    if (arguments.size() == 2) return save_often(arguments.front(), arguments.back().front());
    const fs::path folder =
        fs::temp_directory_path() / ("voxtab-kill" + std::to_string(GetCurrentProcessId()));
    fs::create_directories(folder);
    const int broken = end_often(folder) + save_at_once(folder);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return broken == 0 ? 0 : 1;
}
