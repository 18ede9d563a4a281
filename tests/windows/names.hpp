// The names that the window gives its controls, where the programs of the test find them: a piece of
// memory that all of them share. Written by the library of the stand-in reader.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

constexpr std::size_t kNames = 64;
constexpr std::size_t kNameLength = 2048;

struct Names {
    volatile LONG process = 0;   // that has loaded the library, 0 none
    struct {
        HWND window;
        wchar_t name[kNameLength];
    } row[kNames];
};

// The shared memory; it lives while a program has it.
inline Names* names() {
    static Names* const memory = [] {
        const HANDLE file = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                               sizeof(Names), L"voxtab-names");
        return static_cast<Names*>(MapViewOfFile(file, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Names)));
    }();
    return memory;
}

// Notes the name of a window; nullptr takes it back.
inline void note_name(HWND window, const wchar_t* name) {
    for (auto& row : names()->row) {
        if (row.window != nullptr && row.window != window) continue;
        row.window = name == nullptr ? nullptr : window;
        if (name != nullptr) lstrcpynW(row.name, name, kNameLength);
        return;
    }
}

// The name that the window has been given, if any.
inline std::optional<std::wstring> noted_name(HWND window) {
    for (const auto& row : names()->row)
        if (row.window == window) return std::wstring(row.name);
    return std::nullopt;
}
